#include "cli/shown_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace tradebill::shown_text_test {
namespace {

using namespace std::string_literals;

struct Case {
    std::string text;
    std::string shown;
};

const Case kCases[] = {
    {"", ""},
    {"plain text, 买卖 ~", "plain text, 买卖 ~"},
    {"\x1B[2J", "\\u001b[2J"},
    {"a\0b"s, "a\\u0000b"},
    {"\x01\x1F\x7F", "\\u0001\\u001f\\u007f"},
    {"a\rb", "a\\rb"},
    {"\xC2\x80\xC2\x9B\xC2\x9F", "\\u0080\\u009b\\u009f"},
    {"\xC2\xA0", "\xC2\xA0"},
    {"\u202A\u202D\u202E", "\\u202a\\u202d\\u202e"},
    {"\u2066\u2069", "\\u2066\\u2069"},
    {"\u2029\u202F\u2065\u206A", "\u2029\u202F\u2065\u206A"},
    {"\x9B", "\\x9b"},
    {"\xFF\xFE", "\\xff\\xfe"},
    {"\xD5\xCB\xBB\xA7", "\\xd5\xCB\xBB\\xa7"},  // GBK, of which the middle reads as a character of UTF-8
    {"\xC0\x9B", "\\xc0\\x9b"},
    {"\xED\xA0\x80", "\\xed\\xa0\\x80"},
    {"\xE4\xB9", "\\xe4\\xb9"},
    {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
    {"\\u001b", "\\u001b"},
};

TEST(ShownText, ShowsWhatWouldOrderATerminalAbout) {
    for (const Case& row : kCases) EXPECT_EQ(ShownText(row.text), row.shown) << row.shown;
    EXPECT_EQ(ShownText("one\ntwo\tthree\r\n"), "one\\ntwo\\tthree\\r\\n");
}

/// What comes out where `write` writes to a stream with a buffer that shows.
template <class Write>
std::string Through(Write write) {
    std::ostringstream end;
    {
        CShownBuffer buffer(*end.rdbuf());
        std::ostream out(&buffer);
        write(out);
        EXPECT_TRUE(out.good());
    }
    return end.str();
}

TEST(ShownBuffer, ShowsTheSame) {
    for (const Case& row : kCases) {
        EXPECT_EQ(Through([&](std::ostream& out) { out << row.text; }), row.shown);
        EXPECT_EQ(Through([&](std::ostream& out) {
                      for (const char byte : row.text) out << byte << std::flush;
                  }),
                  row.shown);
        EXPECT_EQ(Through([&](std::ostream& out) {
                      for (const char byte : row.text) out.put(byte);
                  }),
                  row.shown);
    }
}

TEST(ShownBuffer, LeavesLineEndsAndTabsToThoseWhoWroteThem) {
    EXPECT_EQ(Through([](std::ostream& out) { out << "one\n\ttwo\r\n"; }), "one\n\ttwo\\r\n");
}

TEST(ShownBuffer, SendsALineEndBehindHalfACharacterAtOnce) {
    for (const char plain : {'\n', '\t', 'a'}) {
        std::ostringstream end;
        CShownBuffer buffer(*end.rdbuf());
        std::ostream out(&buffer);
        for (const std::string& half : {"\xE4"s, "\xE4\xB9"s}) {
            out << half << plain;
            EXPECT_EQ(end.str(), ShownText(half) + plain);
            end.str("");
        }
    }
}

TEST(ShownBuffer, SendsTheProgramsOwnOrders) {
    EXPECT_EQ(Through([](std::ostream& out) {
                  SendOrders(out, "\r\x1B[K");
                  out << "\x1B";
              }),
              "\r\x1B[K\\u001b");
    std::ostringstream plain;
    SendOrders(plain, "\x1B[K");
    EXPECT_EQ(plain.str(), "\x1B[K");
}

/// Takes so many bytes and no more.
class CNarrowBuffer final : public std::streambuf {
public:
    explicit CNarrowBuffer(std::streamsize room) : room_(room) {}

    std::string taken;

protected:
    std::streamsize xsputn(const char* bytes, std::streamsize size) override {
        const std::streamsize fitting = std::min(size, room_);
        room_ -= fitting;
        taken.append(bytes, static_cast<std::size_t>(fitting));
        return fitting;
    }

private:
    std::streamsize room_;
};

// Wherever it breaks off: in plain text, in what is shown, or in a character that came in two pieces.
TEST(ShownBuffer, TellsAtWhichWriteTheRoomEnded) {
    const std::string pieces[] = {"ab\x1B", "cd\xE4", "\xB9\xB0", "e"};
    const std::string shown = "ab\\u001bcd\u4E70e";
    const std::size_t written[] = {8, 10, 13, 14};  // bytes, by the end of each piece
    for (std::size_t room = 0; room <= shown.size(); ++room) {
        CNarrowBuffer narrow(static_cast<std::streamsize>(room));
        CShownBuffer buffer(narrow);
        std::ostream out(&buffer);
        for (std::size_t i = 0; i < std::size(pieces); ++i) {
            out << pieces[i];
            EXPECT_EQ(out.good(), written[i] <= room) << room << " at " << pieces[i];
        }
        EXPECT_EQ(narrow.taken, shown.substr(0, room));
    }
}

TEST(ShownBuffer, TellsThatNotAllGotOut) {
    class CFullBuffer final : public std::streambuf {
    protected:
        int sync() override { return -1; }
    } full;
    CShownBuffer buffer(full);
    std::ostream out(&buffer);
    out << "text";
    EXPECT_FALSE(out.good());
    out.clear();
    out.put('a');
    EXPECT_FALSE(out.good());
    out.clear();
    out.flush();
    EXPECT_FALSE(out.good());
}

}  // namespace
}  // namespace tradebill::shown_text_test
