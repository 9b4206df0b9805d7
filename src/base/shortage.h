// What can't be had for now.
#pragma once

#include <new>

namespace tradebill {

/// A lack of anything else than memory, or of it where nobody can say of what. It is met as a lack of memory is, by
/// whoever is prepared for one: what is at hand can't be done, and another try may come out otherwise.
class CShortage final : public std::bad_alloc {
public:
    /// `what` is in English and static.
    explicit CShortage(const char* what) noexcept : what_(what) {}

    [[nodiscard]] const char* what() const noexcept override { return what_; }

private:
    const char* what_;
};

/// The words for `shortage`, without allocating.
[[nodiscard]] inline const char* ShortageText(const std::bad_alloc& shortage) noexcept {
    const auto* const named = dynamic_cast<const CShortage*>(&shortage);
    return named != nullptr ? named->what() : "out of memory";
}

}  // namespace tradebill
