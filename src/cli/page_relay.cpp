#include "cli/page_relay.h"

#include <cstddef>
#include <exception>
#include <mutex>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "page/page_sink.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostWaiting = 4;  // blocks of some 256 KiB

}  // namespace

CPageRelay::CPageRelay(CPageSink& sink) : sink_(sink) {
    try {
        thread_ = std::thread([this] { Run(); });
    } catch (const std::system_error&) {
        thread_ = {};  // the system has none to spare
    }
}

CPageRelay::~CPageRelay() {
    End();
}

void CPageRelay::AddStyle(std::string_view block) {
    HandOn([this, copy = std::string(block)] { sink_.AddStyle(copy); });
}

void CPageRelay::AddText(std::string_view text) {
    HandOn([this, copy = std::string(text)] { sink_.AddText(copy); });
}

void CPageRelay::ClosePage() {
    HandOn([this] { sink_.ClosePage(); });
}

void CPageRelay::BeginRows(const PageRows& table) {
    HandOn([this, copy = table, lineClass = std::string(table.lineClass)]() mutable {
        copy.lineClass = lineClass;
        sink_.BeginRows(copy);
    });
}

void CPageRelay::BeginDay(std::string_view day) {
    HandOn([this, copy = std::string(day)] { sink_.BeginDay(copy); });
}

void CPageRelay::EndRows() {
    HandOn([this] { sink_.EndRows(); });
}

void CPageRelay::Finish() {
    End();
    if (thrown_ != nullptr) std::rethrow_exception(thrown_);
}

void CPageRelay::HandOn(Work work) {
    if (!thread_.joinable()) {
        work();
        return;
    }
    std::unique_lock guard(lock_);
    changed_.wait(guard, [this] { return waiting_.size() < kMostWaiting; });
    waiting_.push_back(std::move(work));
    changed_.notify_all();
}

void CPageRelay::Run() {
    std::unique_lock guard(lock_);
    for (;;) {
        changed_.wait(guard, [this] { return isEnding_ || !waiting_.empty(); });
        if (waiting_.empty()) return;
        Work work = std::move(waiting_.front());
        waiting_.pop_front();
        changed_.notify_all();
        if (thrown_ != nullptr) continue;
        guard.unlock();
        std::exception_ptr thrown;
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
        guard.lock();
        thrown_ = thrown;
    }
}

void CPageRelay::End() {
    if (!thread_.joinable()) return;
    {
        const std::scoped_lock guard(lock_);
        isEnding_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

}  // namespace tradebill
