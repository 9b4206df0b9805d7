// Keeps programs apart that write the same page: one after the other does, and none waits for ever.
#pragma once

#include <memory>
#include <string>

#include "platform/lock_file.h"

namespace tradebill {

class CPlaceGuard {
public:
    /// Waits until no other holds the folder, for at most `seconds`. A file in it says who holds it.
    CPlaceGuard(const std::string& folder, int seconds);

    /// Lets go of the folder. False if that leaves the file that says who holds it.
    bool Release() { return lock_->Release(); }

    [[nodiscard]] bool IsHeld() const { return lock_->IsHeld(); }
    /// Who else holds the folder; UTF-8, empty if nobody does. One who doesn't say his name is "another program".
    [[nodiscard]] const std::string& Holder() const { return holder_; }
    /// Why nobody holds it and this doesn't either, in the system's words; UTF-8.
    [[nodiscard]] const std::string& Reason() const { return reason_; }

    /// The file that says who holds the folder.
    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    std::string path_;
    std::unique_ptr<CLockFile> lock_;
    std::string holder_;
    std::string reason_;
};

}  // namespace tradebill
