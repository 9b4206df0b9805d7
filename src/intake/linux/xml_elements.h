// The elements of one name in a document that comes in pieces, one after the other, so that a large document needs no
// more memory than its largest element.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tradebill {

/// Elements of the name don't stand inside of each other. A prefix of the name, as in "x:row", is passed over.
class CXmlElements {
public:
    static constexpr std::size_t kLargest = std::size_t{8} << 20;  ///< bytes of an element

    /// Calls onElement for each whole element; it returns false to end.
    CXmlElements(std::string_view name, std::function<bool(std::string_view element)> onElement);

    /// Takes the next piece. False if an element is too large, or onElement was false.
    [[nodiscard]] bool Feed(std::string_view piece);

    /// Whether the last element was whole.
    [[nodiscard]] bool EndsWell() const { return !isInside_; }

private:
    [[nodiscard]] bool FindStart();
    [[nodiscard]] bool FindEnd();

    std::string name_;
    std::function<bool(std::string_view)> onElement_;
    std::string pending_;
    std::string end_;         // of the element that has begun
    std::size_t first_ = 0;   // byte of that element in what is pending
    std::size_t looked_ = 0;  // at so many bytes of what is pending
    bool isInside_ = false;
    bool goesOn_ = true;
};

}  // namespace tradebill
