#include "intake/linux/xlsx_workbook.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/day_number.h"
#include "base/text.h"
#include "intake/linux/xlsx_parts.h"
#include "intake/linux/xml_elements.h"
#include "intake/linux/zip_archive.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

constexpr const char* kDamaged = "it is a workbook that is damaged or cut off";

constexpr std::uint32_t kMostRows = 1'048'576;
constexpr std::uint32_t kMostColumns = 16'384;

std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

const char* WhyUnread(ZipState state) {
    switch (state) {
        case ZipState::Encrypted:
            return "it is encrypted: save it without a password";
        case ZipState::TooLarge:
            return "it unpacks to more than 256 MB";
        case ZipState::NoLibrary:
            return "it is a workbook, and libzip, which unpacks it, isn't installed";
        default:
            return kDamaged;
    }
}

bool IsElement(const pugi::xml_node& node, std::string_view name) {
    return LocalName(node.name()) == name;
}

/// The text below `node`, but not that which says how a word is spoken.
void AppendText(const pugi::xml_node& node, std::string& text) {
    for (const pugi::xml_node& child : node.children()) {
        if (IsElement(child, "t")) {
            text += child.text().get();
        } else if (IsElement(child, "r")) {
            AppendText(child, text);
        }
    }
}

/// Parses one whole element with the blanks in its texts.
pugi::xml_node Parse(std::string_view element, pugi::xml_document& document) {
    constexpr unsigned kOptions = pugi::parse_default | pugi::parse_ws_pcdata_single;
    const auto result = document.load_buffer(element.data(), element.size(), kOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) throw std::bad_alloc();
    return result ? document.document_element() : pugi::xml_node();
}

template <class Number>
std::optional<Number> NumberIn(std::string_view text) {
    Number number{};
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    return fault == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// The place of "B7"; nothing if it is none.
std::optional<CellPlace> PlaceOf(std::string_view name) {
    constexpr std::uint32_t kLetters = 26;
    std::uint32_t column = 0;
    std::size_t at = 0;
    for (; at < name.size() && name[at] >= 'A' && name[at] <= 'Z'; ++at) {
        column = column * kLetters + static_cast<std::uint32_t>(name[at] - 'A' + 1);
        if (column > kMostColumns) return std::nullopt;
    }
    const auto row = NumberIn<std::uint32_t>(name.substr(at));
    if (column == 0 || !row || *row == 0 || *row > kMostRows) return std::nullopt;
    return CellPlace{*row - 1, column - 1};
}

class CXlsxReader {
public:
    CXlsxReader(CZipArchive& archive, Workbook& workbook) : archive_(archive), workbook_(workbook), filler_(workbook) {}

    void Read(const XlsxParts& parts) {
        if (!parts.texts.empty() && !ReadElements(parts.texts, "si", [&](auto element) { return AddText(element); })) {
            return;
        }
        for (const XlsxSheetPart& sheet : parts.sheets) {
            filler_.BeginSheet(sheet.name);
            next_ = {};
            const auto onRow = [&](std::string_view row) { return AddRow(row); };
            if (filler_.IsTooLarge() || !ReadElements(sheet.part, "row", onRow)) return;
        }
        filler_.End();
    }

private:
    /// False if the workbook is refused, for its archive or for what onElement saw.
    template <class OnElement>
    bool ReadElements(const std::string& part, std::string_view name, OnElement onElement) {
        CXmlElements elements(name, onElement);
        bool isFed = true;
        const bool isRead = archive_.ReadPieces(part, [&](std::string_view piece) {
            isFed = elements.Feed(piece);
            return isFed;
        });
        if (workbook_.refusal.empty() && !isRead) workbook_.refusal = WhyUnread(archive_.State());
        if (workbook_.refusal.empty() && (!isFed || !elements.EndsWell())) workbook_.refusal = kDamaged;
        return workbook_.refusal.empty();
    }

    /// One of the texts that cells share.
    bool AddText(std::string_view element) {
        pugi::xml_document document;
        const pugi::xml_node item = Parse(element, document);
        if (!item) return false;
        if (shared_.size() == CWorkbookFiller::kMostCells) {
            workbook_.refusal = "it has more than " + std::to_string(shared_.size()) + " texts";
            return false;
        }
        std::string text;
        AppendText(item, text);
        shared_.push_back(filler_.Keep(text.substr(0, CWorkbookFiller::kLongestText)));
        return true;
    }

    bool AddRow(std::string_view element) {
        pugi::xml_document document;
        const pugi::xml_node row = Parse(element, document);
        if (!row) return false;
        if (const auto number = NumberIn<std::uint32_t>(row.attribute("r").value()); number && *number > 0) {
            next_.row = *number - 1;
        }
        next_.column = 0;
        for (const pugi::xml_node& cell : row.children()) {
            if (IsElement(cell, "c") && !AddCell(cell)) return false;
            if (filler_.IsTooLarge()) return false;
        }
        ++next_.row;
        return next_.row <= kMostRows;
    }

    /// A cell stands where it says, or else behind its predecessor.
    bool AddCell(const pugi::xml_node& cell) {
        if (const pugi::xml_attribute name = cell.attribute("r")) {
            const auto place = PlaceOf(name.value());
            if (!place) return false;
            next_ = *place;
        }
        if (next_.column >= kMostColumns) return false;
        const CellPlace place = next_;
        ++next_.column;
        return AddValue(cell, place);
    }

    bool AddValue(const pugi::xml_node& cell, CellPlace place) {
        const std::string_view kind = cell.attribute("t").value();
        pugi::xml_node value;
        bool isFormula = false;
        for (const pugi::xml_node& child : cell.children()) {
            if (IsElement(child, "v") || IsElement(child, "is")) value = child;
            isFormula |= IsElement(child, "f");
        }
        const bool hasValue = value && (!isFormula || !Trim(value.text().get()).empty());
        if (isFormula && (!hasValue || kind == "e")) return TellMissing(place);
        if (!value) return true;
        if (kind == "inlineStr") return AddInline(value, place);
        const char* const text = value.text().get();
        if (kind == "s") return AddShared(Trim(text), place);
        if (kind.empty() || kind == "n" || kind == "b") return AddNumber(Trim(text), place);
        filler_.AddText(place, filler_.Keep(text));
        return true;
    }

    bool AddInline(const pugi::xml_node& value, CellPlace place) {
        std::string text;
        AppendText(value, text);
        filler_.AddText(place, filler_.Keep(text));
        return true;
    }

    bool AddShared(std::string_view index, CellPlace place) {
        const auto number = NumberIn<std::size_t>(index);
        if (!number || *number >= shared_.size()) return false;
        filler_.AddText(place, shared_[*number]);
        return true;
    }

    bool AddNumber(std::string_view text, CellPlace place) {
        if (text.empty()) return true;
        const auto number = NumberIn<double>(text);
        if (number) filler_.AddNumber(place, *number);
        return number.has_value();
    }

    bool TellMissing(CellPlace place) {
        workbook_.refusal = "the formula in " + CellName(place) + " of " + workbook_.sheets.back().name +
                            " has no value beside it: open it in an office program and save it anew";
        return false;
    }

    CZipArchive& archive_;
    Workbook& workbook_;
    CWorkbookFiller filler_;
    CellPlace next_;
    std::vector<std::string_view> shared_;
};

}  // namespace

void ReadXlsx(std::string_view bytes, Workbook& workbook) {
    workbook.form = "xlsx";
    CZipArchive archive(bytes);
    if (archive.State() != ZipState::Sound) {
        workbook.refusal = WhyUnread(archive.State());
        return;
    }
    const XlsxParts parts = FindXlsxParts(archive);
    if (archive.State() != ZipState::Sound) {
        workbook.refusal = WhyUnread(archive.State());
    } else if (parts.sheets.empty()) {
        const bool isWorkbook = archive.Has("xl/workbook.xml");
        workbook.refusal = isWorkbook ? kDamaged : "it is a zip file, and neither a text nor a workbook";
    } else {
        workbook.hasMacros = parts.hasMacros;
        workbook.dayOfZero = DayNumberOf(parts.countsFrom1904 ? "19040101" : "18991230").value_or(0);
        CXlsxReader(archive, workbook).Read(parts);
    }
}

}  // namespace tradebill
