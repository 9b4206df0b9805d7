// SHA-256, by the system's own library. For the program alone: the module needs none.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tradebill {

/// The digest of bytes that come piece by piece.
class CSha256 {
public:
    CSha256();
    ~CSha256();
    CSha256(const CSha256&) = delete;
    CSha256& operator=(const CSha256&) = delete;

    void Add(std::string_view bytes);

    /// The digest of all that was added: 64 lower-case hexadecimal digits.
    ///
    /// REQUIRES: nothing is added or asked afterwards.
    [[nodiscard]] std::string Digest();

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tradebill
