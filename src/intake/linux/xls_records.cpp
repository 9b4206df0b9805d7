#include "intake/linux/xls_records.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "intake/linux/little_endian.h"
#include "intake/utf16_text.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

// Kinds of records.
constexpr std::uint16_t kFormula = 0x0006;
constexpr std::uint16_t kEnd = 0x000A;
constexpr std::uint16_t kPassword = 0x002F;
constexpr std::uint16_t kSheet = 0x0085;
constexpr std::uint16_t kStrings = 0x00FC;
constexpr std::uint16_t kSize = 0x0200;
constexpr std::uint16_t kFormulaText = 0x0207;
constexpr std::uint16_t kBegin = 0x0809;

constexpr const char* kDamaged = "it is a workbook that is damaged or cut off";

struct Record {
    std::uint16_t kind = 0;
    std::string_view bytes = {};

    [[nodiscard]] bool Has(std::size_t size) const { return bytes.size() >= size; }
};

/// A text behind its number of characters and the byte that says how they are stored.
std::optional<std::string> TextAt(std::string_view bytes, std::size_t characters) {
    constexpr char kIsWide = 1;
    if (bytes.empty()) return std::nullopt;
    const bool isWide = (bytes[0] & kIsWide) != 0;
    const std::string_view text = bytes.substr(1);
    if (text.size() < characters * (isWide ? 2 : 1)) return std::nullopt;
    if (isWide) return Utf16ToUtf8(text.substr(0, characters * 2), ByteOrder::LittleEndian);
    std::string wide;
    for (const char byte : text.substr(0, characters)) wide.append({byte, '\0'});
    return Utf16ToUtf8(wide, ByteOrder::LittleEndian);
}

class CRecordReader {
public:
    explicit CRecordReader(std::string_view stream) : stream_(stream) {}

    XlsRecords Read() {
        if (!ReadGlobals()) {
            Refuse(kDamaged);
        } else {
            for (const Sheet& sheet : sheets_) {
                if (!result_.refusal.empty() || !ReadSheet(sheet)) Refuse(kDamaged);
            }
        }
        return std::move(result_);
    }

private:
    struct Sheet {
        std::string name;
        std::size_t at;
    };

    void Refuse(const std::string& why) {
        if (result_.refusal.empty()) result_.refusal = why;
    }

    /// The record at `at_`, and on to the next.
    std::optional<Record> Next() {
        constexpr std::size_t kHead = 4;
        if (stream_.size() - at_ < kHead) return std::nullopt;
        const Record record{Word16(stream_, at_), stream_.substr(at_ + kHead, Word16(stream_, at_ + 2))};
        if (record.bytes.size() < Word16(stream_, at_ + 2)) return std::nullopt;
        at_ += kHead + record.bytes.size();
        return record;
    }

    bool ReadGlobals() {
        constexpr std::uint16_t kNewestVersion = 0x0600;
        const auto begin = Next();
        if (!begin || begin->kind != kBegin || !begin->Has(2)) return false;
        if (Word16(begin->bytes, 0) != kNewestVersion) {
            Refuse("it is a workbook of a form older than that of 1997: save it anew");
            return true;
        }
        for (auto record = Next(); record; record = Next()) {
            if (record->kind == kEnd) return !sheets_.empty();
            if (record->kind == kPassword) {
                Refuse("it is encrypted: save it without a password");
                return true;
            }
            if (record->kind == kSheet && !AddSheet(*record)) return false;
            if (record->kind == kStrings && !HasRoomForStrings(*record)) return false;
        }
        return false;
    }

    bool AddSheet(const Record& record) {
        constexpr std::size_t kKindAt = 5;
        constexpr std::size_t kNameAt = 6;
        constexpr char kOfCells = 0;
        if (!record.Has(kNameAt + 2)) return false;
        const std::size_t at = Word32(record.bytes, 0);
        const auto name = TextAt(record.bytes.substr(kNameAt + 1), static_cast<unsigned char>(record.bytes[kNameAt]));
        if (!name || at >= stream_.size()) return false;
        if (record.bytes[kKindAt] == kOfCells) sheets_.push_back({*name, at});
        return sheets_.size() <= CWorkbookFiller::kMostSheets;
    }

    /// Whether so many strings as are told of fit into the stream.
    [[nodiscard]] bool HasRoomForStrings(const Record& record) const {
        constexpr std::size_t kCountAt = 4;
        constexpr std::size_t kLeast = 3;  // bytes of a string
        return record.Has(kCountAt + 4) && Word32(record.bytes, kCountAt) <= stream_.size() / kLeast;
    }

    bool ReadSheet(const Sheet& sheet) {
        at_ = sheet.at;
        int depth = 0;  // charts stand inside of sheets
        std::vector<XlsFormula>& formulas = result_.formulas[sheet.name];
        bool wantsText = false;
        for (auto record = Next(); record; record = Next()) {
            if (depth == 0 && record->kind != kBegin) return false;
            if (record->kind == kBegin) ++depth;
            if (record->kind == kEnd && --depth == 0) return !wantsText || TellMissing(sheet, formulas.back());
            if (depth > 1) continue;
            if (record->kind == kSize && !HasFewCells(*record)) return true;
            if (record->kind == kFormula) {
                if (wantsText) return TellMissing(sheet, formulas.back());
                if (!AddFormula(*record, sheet, formulas, wantsText)) return false;
                if (!result_.refusal.empty()) return true;
            } else if (record->kind == kFormulaText && wantsText) {
                if (!record->Has(2)) return false;
                formulas.back().text = TextAt(record->bytes.substr(2), Word16(record->bytes, 0));
                wantsText = false;
                if (!formulas.back().text) return false;
            }
        }
        return false;
    }

    bool TellMissing(const Sheet& sheet, const XlsFormula& formula) {
        Refuse("the formula in " + CellName(formula.place) + " of " + sheet.name +
               " has no value beside it: open it in an office program and save it anew");
        return true;
    }

    /// A sheet takes memory for all of its cells, whether they hold something or not.
    bool HasFewCells(const Record& record) {
        constexpr std::size_t kMostCells = 4'000'000;
        constexpr std::size_t kLastRowAt = 4;
        constexpr std::size_t kLastColumnAt = 10;
        if (!record.Has(kLastColumnAt + 2)) return true;
        cells_ += std::size_t{Word32(record.bytes, kLastRowAt)} * Word16(record.bytes, kLastColumnAt);
        if (cells_ > kMostCells) Refuse("its sheets span more than " + std::to_string(kMostCells) + " cells");
        return cells_ <= kMostCells;
    }

    bool AddFormula(const Record& record, const Sheet& sheet, std::vector<XlsFormula>& formulas, bool& wantsText) {
        constexpr std::size_t kValueAt = 6;
        constexpr std::size_t kFlagsAt = 14;
        constexpr std::size_t kNoNumberAt = 12;
        constexpr std::uint16_t kNoNumber = 0xFFFF;
        constexpr std::uint16_t kToBeWorkedOut = 3;  // always, or as the workbook is opened
        if (!record.Has(kFlagsAt + 2) || ++formulaCount_ > CWorkbookFiller::kMostCells) return false;
        const std::uint64_t value = LittleEndian(record.bytes, kValueAt, sizeof(std::uint64_t));
        formulas.push_back({.place = {Word16(record.bytes, 0), Word16(record.bytes, 2)}});
        if (Word16(record.bytes, kNoNumberAt) != kNoNumber) {
            formulas.back().number = std::bit_cast<double>(value);
            const bool isOpen = value == 0 && (Word16(record.bytes, kFlagsAt) & kToBeWorkedOut) != 0;
            return !isOpen || TellMissing(sheet, formulas.back());
        }
        // Writers that work nothing out leave a fault or an empty text.
        enum : char { IsText = 0, IsTruth = 1 };
        const char kind = record.bytes[kValueAt];
        wantsText = kind == IsText;
        if (kind == IsTruth) formulas.back().number = record.bytes[kValueAt + 2];
        return wantsText || kind == IsTruth || TellMissing(sheet, formulas.back());
    }

    std::string_view stream_;
    std::size_t at_ = 0;
    std::size_t cells_ = 0;
    std::size_t formulaCount_ = 0;
    std::vector<Sheet> sheets_;
    XlsRecords result_;
};

}  // namespace

XlsRecords ReadXlsRecords(std::string_view stream) {
    return CRecordReader(stream).Read();
}

}  // namespace tradebill
