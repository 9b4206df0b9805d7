// What reaches a terminal: characters that order it about, or turn its text round, are shown instead of sent. They may
// stand in every statement, template and file name, and in the command line.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace tradebill {

/// `text`, which should be UTF-8, as one line that can be shown: controls and marks of direction as JSON escapes them,
/// "\u001b", "\n", "\u202e"; a byte that belongs to no character as "\xff". All else stays.
[[nodiscard]] std::string ShownText(std::string_view text);

/// Hands on what can be shown as it is, and shows the rest as ShownText does; line ends and tabs pass, for there is
/// nobody here to tell who wrote them. JSON stays the JSON that it is.
class CShownBuffer final : public std::streambuf {
public:
    /// `inner` must outlive it.
    explicit CShownBuffer(std::streambuf& inner) : inner_(inner) {}
    ~CShownBuffer() override;
    CShownBuffer(const CShownBuffer&) = delete;
    CShownBuffer& operator=(const CShownBuffer&) = delete;

    /// What the program itself orders a terminal to do, as it is.
    void SendOrders(std::string_view orders);

    /// Whether colours are ordered; they aren't unless somebody says so.
    void UseColours(bool uses) { usesColours_ = uses; }
    [[nodiscard]] bool UsesColours() const { return usesColours_; }

protected:
    int_type overflow(int_type byte) override;
    std::streamsize xsputn(const char* bytes, std::streamsize size) override;
    int sync() override;

private:
    [[nodiscard]] bool HandOn(std::string_view text);
    [[nodiscard]] bool SendCharacters(std::string_view& text);
    [[nodiscard]] bool Send(std::string_view shown);

    std::streambuf& inner_;
    std::string waiting_;  // the start of a character
    bool usesColours_ = false;
};

/// What the program orders the terminal behind `out`, which may have a CShownBuffer.
void SendOrders(std::ostream& out, std::string_view orders);

/// Colours of words that a reader looks for; the terminal's own palette says what they look like.
enum class Colour { Red, Yellow, Cyan };

/// Writes the program's own `text`, in bold letters of a colour where the CShownBuffer behind `out` uses colours.
void SendColoured(std::ostream& out, Colour colour, std::string_view text);

/// Standard output and standard error show what they are given for as long as it lives.
class CShownStreams {
public:
    CShownStreams();
    ~CShownStreams();
    CShownStreams(const CShownStreams&) = delete;
    CShownStreams& operator=(const CShownStreams&) = delete;

    /// Has standard error ordered colours, or not.
    void UseColours(bool uses) { shownError_.UseColours(uses); }

private:
    std::streambuf* output_;
    std::streambuf* error_;
    CShownBuffer shownOutput_;
    CShownBuffer shownError_;
};

}  // namespace tradebill
