#include "cli/output_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iostream>
#include <optional>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>

#include "cli/shown_text.h"
#include "platform/file.h"
#include "platform/output_target.h"
#include "platform/paths.h"
#include "requests/standard_input.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// Hands what is written to a stream on in large pieces, to a CFile or a CStraightOutput.
template <class Output>
class CPieceBuffer final : public std::streambuf {
public:
    explicit CPieceBuffer(Output& output) : output_(output) { Empty(); }

protected:
    /// Streams call it with a byte alone.
    int_type overflow(int_type byte) override {
        return HandOn() ? sputc(traits_type::to_char_type(byte)) : traits_type::eof();
    }
    std::streamsize xsputn(const char* bytes, std::streamsize size) override {
        if (size <= epptr() - pptr()) return std::streambuf::xsputn(bytes, size);
        return HandOn() && output_.Write({bytes, static_cast<std::size_t>(size)}) ? size : 0;
    }
    int sync() override { return HandOn() ? 0 : -1; }

private:
    void Empty() { setp(pieces_.data(), pieces_.data() + pieces_.size()); }
    bool HandOn() {
        const std::string_view waiting(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        Empty();
        return output_.Write(waiting);
    }

    Output& output_;
    std::array<char, std::size_t{32} << 10> pieces_{};
};

bool WriteThrough(std::streambuf& buffer, const std::function<bool(std::ostream&)>& write) {
    std::ostream out(&buffer);
    const bool isWritten = write(out);
    out.flush();
    return isWritten && out.good();
}

/// The work is done all the same: it may have more to do than to write this.
void WriteNowhere(const std::function<bool(std::ostream&)>& write) {
    std::ostream nowhere(nullptr);
    static_cast<void>(write(nowhere));
}

bool SaveStraight(const OutputTarget& target, const std::function<bool(std::ostream&)>& write) {
    CStraightOutput output(target);
    if (!output.IsOpen()) {
        WriteNowhere(write);
        return false;
    }
    CPieceBuffer pieces(output);
    CShownBuffer shown(pieces);
    const bool isWritten = output.IsTerminal() ? WriteThrough(shown, write) : WriteThrough(pieces, write);
    return isWritten && output.Close();
}

bool SaveFile(const std::string& path, const std::function<bool(std::ostream&)>& write) {
    bool isTried = false;
    const auto writeFile = [&](CFile& file) {
        isTried = true;
        CPieceBuffer pieces(file);
        return WriteThrough(pieces, write);
    };
    const bool isSaved = SaveInOneStep(path, writeFile, Durability::OnDisk);
    if (!isTried) WriteNowhere(write);
    return isSaved;
}

OutputTarget TargetOf(const std::string& option, const std::string& given) {
    if (given == kStandardStream) return {};
    auto target = FindOutputTarget(given);
    const bool isFile = target && target->kind == OutputTarget::Kind::File;
    if (given.empty() || !target || (isFile && (IsFolder(target->path) || !IsFolder(FolderOf(target->path))))) {
        throw CUsageError(option + ": expected a file in a folder that is there, found \"" + given + "\"");
    }
    return *std::move(target);
}

}  // namespace

COutputFile::COutputFile(std::string option, std::string given)
    : option_(std::move(option)), given_(std::move(given)), target_(TargetOf(option_, given_)) {}

std::string COutputFile::Name() const {
    return given_ == kStandardStream ? "standard output" : given_;
}

bool COutputFile::LeadsTo(const std::string& path) const {
    if (IsFile()) return IsSameFile(target_.path, path);
    const auto other = FindOutputTarget(path);
    return IsStandardOutput() && other && other->kind == OutputTarget::Kind::StandardOutput;
}

bool COutputFile::IsSamePlaceAs(const COutputFile& other) const {
    if (!IsFile() || !other.IsFile()) return IsStandardOutput() && other.IsStandardOutput();
    return FileNameOf(target_.path) == FileNameOf(other.target_.path) &&
           IsSameFile(FolderOf(target_.path), FolderOf(other.target_.path));
}

bool COutputFile::Save(const std::function<bool(std::ostream&)>& write) const {
    return IsFile() ? SaveFile(target_.path, write) : SaveStraight(target_, write);
}

std::optional<COutputFile> FindOutput(const char* option, const std::optional<std::string>& given) {
    return given ? std::optional<COutputFile>(std::in_place, option, *given) : std::nullopt;
}

void CheckOutputs(std::initializer_list<std::optional<COutputFile>> outputs) {
    for (const auto* one = outputs.begin(); one != outputs.end(); ++one) {
        for (const auto* other = outputs.begin(); other != one; ++other) {
            if (!*one || !*other || !(*one)->IsSamePlaceAs(**other)) continue;
            throw CUsageError((*one)->Option() + ": expected another place than that of " + (*other)->Option() +
                              ", found " + (*one)->Name() + " for both");
        }
    }
}

std::ostream& SummaryStream(std::initializer_list<std::optional<COutputFile>> outputs) {
    const bool isTaken = std::ranges::any_of(
        outputs, [](const std::optional<COutputFile>& output) { return output && output->IsStandardOutput(); });
    return isTaken ? std::cerr : std::cout;
}

}  // namespace tradebill
