#include "intake/linux/xml_elements.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tradebill {

CXmlElements::CXmlElements(std::string_view name, std::function<bool(std::string_view element)> onElement)
    : name_(name), onElement_(std::move(onElement)) {}

bool CXmlElements::Feed(std::string_view piece) {
    pending_ += piece;
    while (goesOn_ && (isInside_ ? FindEnd() : FindStart())) {
    }
    const std::size_t done = isInside_ ? first_ : looked_;
    pending_.erase(0, done);
    looked_ -= done;
    first_ = 0;
    return goesOn_ && pending_.size() <= kLargest;
}

/// Looks for the tag that begins an element. False if it isn't there yet.
bool CXmlElements::FindStart() {
    for (;;) {
        const std::size_t at = pending_.find('<', looked_);
        looked_ = at == std::string::npos ? pending_.size() : at;
        const std::size_t close = pending_.find('>', looked_);
        if (close == std::string::npos) return false;
        const std::string_view tag = std::string_view(pending_).substr(at + 1, close - at - 1);
        const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
        const std::string_view local = name.substr(name.find(':') + 1);  // behind the prefix, if it has one
        looked_ = close + 1;
        if (local != name_ || tag.ends_with('/')) continue;
        end_ = "</" + std::string(name) + ">";
        first_ = at;
        isInside_ = true;
        return true;
    }
}

/// Looks for the tag that ends the element. False if it isn't there yet.
bool CXmlElements::FindEnd() {
    const std::size_t at = pending_.find(end_, looked_);
    if (at == std::string::npos) {
        // It may be cut at the end of what is pending.
        if (pending_.size() > looked_ + end_.size()) looked_ = pending_.size() - end_.size();
        return false;
    }
    looked_ = at + end_.size();
    goesOn_ = onElement_(std::string_view(pending_).substr(first_, looked_ - first_));
    isInside_ = false;
    return goesOn_;
}

}  // namespace tradebill
