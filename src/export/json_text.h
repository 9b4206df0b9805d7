// JSON put down as text, in large blocks: a tree of values built first would cost more time and memory than the report.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace tradebill {

class CPlainDecimal;

/// Writes values in the order of the calls and sets the commas. Nothing checks that names and brackets match; what it
/// writes for each value is what the JSON library writes. The last block reaches `out` when this ends.
class CJsonText {
public:
    explicit CJsonText(std::ostream& out);
    ~CJsonText();
    CJsonText(const CJsonText&) = delete;
    CJsonText& operator=(const CJsonText&) = delete;

    void OpenObject() { Open('{'); }
    void CloseObject() { Close('}'); }
    void OpenList() { Open('['); }
    void CloseList() { Close(']'); }

    /// The name of the next value. It stands as given, so it is ASCII without quotes and backslashes.
    void Name(std::string_view name);

    /// A text of GBK bytes, as UTF-8.
    void Text(std::string_view gbk);
    /// A text that is UTF-8 already; what is no UTF-8 in it becomes U+FFFD.
    void Utf8Text(std::string_view utf8);
    /// A name and a text that is UTF-8.
    void NamedText(std::string_view name, std::string_view utf8) {
        Name(name);
        Utf8Text(utf8);
    }
    /// Null for an empty text.
    void NamedTextOrNull(std::string_view name, std::string_view utf8) {
        if (!utf8.empty()) return NamedText(name, utf8);
        Name(name);
        Null();
    }
    void Null();
    void Truth(bool value);
    void Number(std::int32_t number) { Number(std::int64_t{number}); }
    void Number(std::int64_t number);
    /// A number as it is printed, or null for what is none.
    void Decimal(const CPlainDecimal& decimal);

    /// Reads back to the same double; infinities and NaN are the texts "inf", "-inf" and "nan".
    void Number(double number);

    /// A blank or a newline before what comes next, behind its comma if it has one.
    void Space(char space) { space_ = space; }

    /// A newline behind the whole.
    void EndLine() { Put('\n'); }

private:
    /// A text met before, with what was written for it.
    struct Known {
        std::string gbk;
        std::string json;
    };
    static constexpr std::size_t kBlock = std::size_t{128} * 1024;
    static constexpr std::size_t kKnown = 256;  ///< a power of two
    static constexpr std::size_t kLongestKnown = 32;

    void Open(char bracket);
    void Close(char bracket);
    void Separate();
    void Put(char byte);
    void Put(std::string_view bytes);
    void Flush();
    void PutDecoded(std::string_view gbk);

    std::ostream& out_;
    std::unique_ptr<char[]> block_ = std::make_unique<char[]>(kBlock);
    std::size_t used_ = 0;
    bool needsComma_ = false;
    char space_ = '\0';
    std::array<Known, kKnown> known_;  ///< names of exchanges and products come again and again; by their hash
};

}  // namespace tradebill
