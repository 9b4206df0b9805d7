#include "readers/statement_loader.h"

#include <algorithm>

#include "platform/file.h"
#include "readers/layout_table.h"
#include "readers/scan_listener.h"
#include "readers/template_reader.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

void ReadWith(const Layout& layout, std::string_view day, std::string_view text, CScanListener* listener) {
    if (listener != nullptr) listener->OnReader(layout.name);
    layout.read(day, text, listener);
}

}  // namespace

bool IsKnownFormat(std::int32_t format) {
    return std::ranges::any_of(Layouts(),
                               [format](const Layout& layout) { return !layout.isForeign && layout.format == format; });
}

void ReadStatement(std::string_view day, std::string_view text, CScanListener* listener) {
    if (IsForeign()) {
        ReadWith(ForeignLayout(), day, text, listener);
        return;
    }
    if (ReadTemplateStatement(day, text, listener)) return;
    const Layout* const layout = FindLayout(Request.StatementFormat, text);
    if (layout != nullptr) ReadWith(*layout, day, text, listener);
}

bool LoadStatement(std::string_view day, const std::string& path) {
    const auto text = ReadStatementFile(path);
    if (!text) return false;
    ReadStatement(day, *text);
    return true;
}

}  // namespace tradebill
