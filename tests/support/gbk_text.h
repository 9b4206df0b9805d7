// GBK texts for tests, from UTF-8 sources at run time.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace tradebill {

/// `utf8` as GBK bytes.
inline std::string Gbk(std::string_view utf8) {
    const auto text = Utf8ToGbk(utf8);
    if (!text) ADD_FAILURE() << "no GBK text: " << utf8;
    return text.value_or(std::string());
}

/// A statement of these lines (UTF-8), as brokers send it: GBK, each line ended by CRLF.
inline std::string Statement(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) text += Gbk(line) + "\r\n";
    return text;
}

}  // namespace tradebill
