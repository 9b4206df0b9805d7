// Characters that stand for no sign: they order a terminal, a printer or a text about.
#pragma once

namespace tradebill {

/// Whether it is one of the two blocks of them, or the deletion between.
[[nodiscard]] constexpr bool IsControl(char32_t character) {
    return character < U' ' || (character >= 0x7F && character < 0xA0);
}

}  // namespace tradebill
