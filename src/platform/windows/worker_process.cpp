#include "platform/worker_process.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/windows/unique_handle.h"
#include "platform/windows/wide_text.h"

namespace tradebill {
namespace {

constexpr UINT kKilled = 0xFFFFFFFF;  // no exit code of a program of ours

/// An argument as programs take command lines apart: in quotes, and backslashes before a quote twice.
std::wstring QuotedArgument(std::wstring_view argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t letter : argument) {
        if (letter == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = letter == L'\\' ? backslashes + 1 : 0;
        quoted += letter;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L"\"";
}

std::wstring CommandLineOf(const WorkerStart& start) {
    std::wstring line = QuotedArgument(WidePath(start.program));
    for (const std::string& argument : start.arguments) line += L" " + QuotedArgument(WideOfUtf8(argument));
    return line;
}

/// One way to a process or from it. The end that is the process's own is handed on to it.
struct Pipe {
    CUniqueHandle read;
    CUniqueHandle write;
};

bool MakePipe(Pipe& pipe, bool isToProcess) {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    SECURITY_ATTRIBUTES handedOn{
        .nLength = sizeof(SECURITY_ATTRIBUTES), .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    if (!::CreatePipe(&read, &write, &handedOn, 0)) return false;
    pipe.read.Reset(read);
    pipe.write.Reset(write);
    return ::SetHandleInformation(isToProcess ? write : read, HANDLE_FLAG_INHERIT, 0) != 0;
}

/// Holds a process and all that it starts: they end with it, and none may take more than it is given.
HANDLE MakeJob(std::uint64_t mostMemory) {
    const HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
    if (job == nullptr) return nullptr;
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (mostMemory > 0) {
        limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        limits.ProcessMemoryLimit = static_cast<SIZE_T>(mostMemory);
    }
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

/// What is handed on to a new process: these handles, and none that another thread is just making for another one.
class CHandedOn {
public:
    explicit CHandedOn(std::vector<HANDLE> handles) : handles_(std::move(handles)) {
        SIZE_T size = 0;
        ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        isMade_ = ::InitializeProcThreadAttributeList(List(), 1, 0, &size) != 0;
        if (isMade_) {
            ::UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                        handles_.size() * sizeof(HANDLE), nullptr, nullptr);
        }
    }
    ~CHandedOn() {
        if (isMade_) ::DeleteProcThreadAttributeList(List());
    }
    CHandedOn(const CHandedOn&) = delete;
    CHandedOn& operator=(const CHandedOn&) = delete;

    [[nodiscard]] LPPROC_THREAD_ATTRIBUTE_LIST List() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
    }

private:
    std::vector<HANDLE> handles_;
    std::vector<std::byte> memory_;
    bool isMade_ = false;
};

bool StartIn(HANDLE job, const WorkerStart& start, HANDLE in, HANDLE out, CUniqueHandle& process) {
    const HANDLE error = ::GetStdHandle(STD_ERROR_HANDLE);
    ::SetHandleInformation(error, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    CHandedOn handles({in, out, error});
    STARTUPINFOEXW info{};
    info.StartupInfo.cb = sizeof info;
    info.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    info.StartupInfo.hStdInput = in;
    info.StartupInfo.hStdOutput = out;
    info.StartupInfo.hStdError = error;
    info.lpAttributeList = handles.List();
    std::wstring line = CommandLineOf(start);
    PROCESS_INFORMATION made{};
    constexpr DWORD kFlags = CREATE_SUSPENDED | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT;
    if (!::CreateProcessW(WidePath(start.program).c_str(), line.data(), nullptr, nullptr, TRUE, kFlags, nullptr,
                          nullptr, &info.StartupInfo, &made)) {
        return false;
    }
    process.Reset(made.hProcess);
    const CUniqueHandle thread(made.hThread);
    if (!::AssignProcessToJobObject(job, made.hProcess)) {
        ::TerminateProcess(made.hProcess, kKilled);
        return false;
    }
    ::ResumeThread(made.hThread);
    return true;
}

}  // namespace

struct CWorkerProcess::State {
    CUniqueHandle job;
    CUniqueHandle process;
    CUniqueHandle toProcess;
    CUniqueHandle fromProcess;
};

std::string OwnProgram() {
    std::array<char, 32768> path{};
    const DWORD size = ::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), size};
}

CWorkerProcess::CWorkerProcess(const WorkerStart& start) {
    Pipe questions;
    Pipe answers;
    if (!MakePipe(questions, true) || !MakePipe(answers, false)) return;
    auto state = std::make_unique<State>();
    state->job.Reset(MakeJob(start.mostMemory));
    if (state->job.Get() == nullptr) return;
    if (!StartIn(state->job.Get(), start, questions.read.Get(), answers.write.Get(), state->process)) return;
    state->toProcess = std::move(questions.write);
    state->fromProcess = std::move(answers.read);
    state_ = std::move(state);
}

CWorkerProcess::~CWorkerProcess() {
    if (state_) Kill();
}

bool CWorkerProcess::Ask(std::string_view line) {
    std::string bytes(line);
    bytes += '\n';
    for (std::string_view rest = bytes; !rest.empty();) {
        DWORD written = 0;
        const auto size = static_cast<DWORD>(std::min<std::size_t>(rest.size(), 65536));
        if (!::WriteFile(state_->toProcess.Get(), rest.data(), size, &written, nullptr) || written == 0) return false;
        rest.remove_prefix(written);
    }
    return true;
}

std::optional<std::string> CWorkerProcess::Answer() {
    std::array<char, 4096> piece;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    for (std::size_t searched = 0;;) {
        const std::size_t end = unread_.find('\n', searched);
        if (end != std::string::npos) {
            std::string answer = unread_.substr(0, end);
            unread_.erase(0, end + 1);
            if (answer.ends_with('\r')) answer.pop_back();
            return answer;
        }
        searched = unread_.size();
        DWORD size = 0;
        if (!::ReadFile(state_->fromProcess.Get(), piece.data(), static_cast<DWORD>(piece.size()), &size, nullptr) ||
            size == 0) {
            return std::nullopt;
        }
        unread_.append(piece.data(), size);
    }
}

void CWorkerProcess::Kill() {
    ::TerminateJobObject(state_->job.Get(), kKilled);
}

std::optional<int> CWorkerProcess::Finish() {
    state_->toProcess.Reset();
    ::WaitForSingleObject(state_->process.Get(), INFINITE);
    DWORD code = kKilled;
    ::GetExitCodeProcess(state_->process.Get(), &code);
    constexpr DWORD kFirstFailure = 0xC0000000;  // of the system, as a crash leaves it
    return code < kFirstFailure ? std::optional(static_cast<int>(code)) : std::nullopt;
}

}  // namespace tradebill
