#include "intake/linux/xls_cells.h"

#include <freexl.h>
#include <sys/mman.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "intake/linux/process_apart.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

// What the process hands over: first whether days count from 1904, then sheets and their cells one behind the other.
enum class Item : char { Sheet, Text, Number };

template <class Value>
void Put(std::string& bytes, const Value& value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void PutText(std::string& bytes, std::string_view text) {
    Put(bytes, text.size());
    bytes += text;
}

/// A file in memory, for a library that takes only paths.
class CMemoryFile {
public:
    explicit CMemoryFile(std::string_view bytes) : file_(::memfd_create("workbook", MFD_CLOEXEC)) {
        while (file_ >= 0 && !bytes.empty()) {
            const ssize_t written = ::write(file_, bytes.data(), bytes.size());
            if (written <= 0) return;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        isComplete_ = file_ >= 0;
    }
    ~CMemoryFile() {
        if (file_ >= 0) ::close(file_);
    }
    CMemoryFile(const CMemoryFile&) = delete;
    CMemoryFile& operator=(const CMemoryFile&) = delete;

    [[nodiscard]] bool IsComplete() const { return isComplete_; }
    [[nodiscard]] std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
    bool isComplete_ = false;
};

struct XlsCloser {
    void operator()(const void* handle) const { freexl_close(handle); }
};
using UniqueXls = std::unique_ptr<const void, XlsCloser>;

UniqueXls Open(const std::string& path) {
    const void* handle = nullptr;
    const int fault = freexl_open(path.c_str(), &handle);
    UniqueXls file(handle);
    if (fault == FREEXL_INSUFFICIENT_MEMORY) throw std::bad_alloc();
    return fault == FREEXL_OK ? std::move(file) : nullptr;
}

unsigned InfoOf(const UniqueXls& file, unsigned short what) {
    unsigned info = 0;
    return freexl_get_info(file.get(), what, &info) == FREEXL_OK ? info : 0;
}

void PutNumber(std::string& bytes, CellPlace place, double number) {
    Put(bytes, Item::Number);
    Put(bytes, place);
    Put(bytes, number);
}

bool PutCell(const UniqueXls& file, CellPlace place, std::string& bytes) {
    FreeXL_CellValue value{};
    const auto column = static_cast<unsigned short>(place.column);
    if (freexl_get_cell_value(file.get(), place.row, column, &value) != FREEXL_OK) return false;
    if (value.type == FREEXL_CELL_INT) {
        PutNumber(bytes, place, value.value.int_value);
    } else if (value.type == FREEXL_CELL_DOUBLE) {
        PutNumber(bytes, place, value.value.double_value);
    } else if (value.type != FREEXL_CELL_NULL && value.value.text_value != nullptr) {
        Put(bytes, Item::Text);
        Put(bytes, place);
        PutText(bytes, value.value.text_value);
    }
    return true;
}

bool PutSheet(const UniqueXls& file, unsigned short sheet, std::string& bytes) {
    constexpr std::size_t kMostBytes = std::size_t{128} << 20;
    const char* name = nullptr;
    std::uint32_t rows = 0;
    unsigned short columns = 0;
    if (freexl_get_worksheet_name(file.get(), sheet, &name) != FREEXL_OK || name == nullptr) return false;
    if (freexl_select_active_worksheet(file.get(), sheet) != FREEXL_OK) return false;
    if (freexl_worksheet_dimensions(file.get(), &rows, &columns) != FREEXL_OK) return false;
    Put(bytes, Item::Sheet);
    PutText(bytes, name);
    for (std::uint32_t row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            if (!PutCell(file, {row, column}, bytes) || bytes.size() > kMostBytes) return false;
        }
    }
    return true;
}

/// Empty if the workbook can't be read.
std::string HandOver(std::string_view workbook) {
    const CMemoryFile memory(workbook);
    const UniqueXls file = memory.IsComplete() ? Open(memory.Path()) : nullptr;
    if (!file) return {};
    std::string bytes;
    Put(bytes, InfoOf(file, FREEXL_BIFF_DATEMODE) == FREEXL_BIFF_DATEMODE_1904);
    const unsigned sheets = InfoOf(file, FREEXL_BIFF_SHEET_COUNT);
    for (unsigned sheet = 0; sheet < sheets; ++sheet) {
        if (!PutSheet(file, static_cast<unsigned short>(sheet), bytes)) return {};
    }
    return bytes;
}

/// Takes what was handed over apart again. Its writer may have run wild, so nothing in it is believed.
class CTaker {
public:
    explicit CTaker(std::string_view rest) : rest_(rest) {}

    [[nodiscard]] bool IsAtEnd() const { return rest_.empty(); }

    template <class Value>
    [[nodiscard]] bool Take(Value& value) {
        if (rest_.size() < sizeof value) return false;
        std::memcpy(&value, rest_.data(), sizeof value);
        rest_.remove_prefix(sizeof value);
        return true;
    }

    [[nodiscard]] bool TakeText(std::string_view& text) {
        std::size_t size = 0;
        if (!Take(size) || size > rest_.size()) return false;
        text = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return true;
    }

private:
    std::string_view rest_;
};

bool TakeCell(CTaker& taker, Item item, XlsCell& cell) {
    if (!taker.Take(cell.place)) return false;
    cell.isNumber = item == Item::Number;
    return cell.isNumber ? taker.Take(cell.number) : taker.TakeText(cell.text);
}

bool TakeSheets(CTaker& taker, XlsCells& cells) {
    while (!taker.IsAtEnd()) {
        char item = 0;
        std::string_view name;
        if (!taker.Take(item)) return false;
        if (static_cast<Item>(item) == Item::Sheet) {
            if (!taker.TakeText(name)) return false;
            cells.sheets.push_back({.name = std::string(name)});
        } else if (cells.sheets.empty() ||
                   !TakeCell(taker, static_cast<Item>(item), cells.sheets.back().cells.emplace_back())) {
            return false;
        }
    }
    return true;
}

}  // namespace

XlsState ReadXlsCells(std::string_view workbook, XlsCells& cells) {
    auto bytes = DoneApart([&] { return HandOver(workbook); });
    if (!bytes) return XlsState::GivenUp;
    cells.bytes = *std::move(bytes);
    CTaker taker(cells.bytes);
    char countsFrom1904 = 0;
    if (!taker.Take(countsFrom1904) || !TakeSheets(taker, cells)) return XlsState::Damaged;
    cells.countsFrom1904 = countsFrom1904 != 0;
    return XlsState::Read;
}

}  // namespace tradebill
