// Hands a page on to another sink on a thread of its own: while that one turns a block into what it writes, the
// sections are at the next.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <string_view>
#include <thread>

#include "page/page_sink.h"

namespace tradebill {

/// What is handed on comes in its order. A few blocks wait at most, so that memory doesn't grow with the page. Without
/// a thread to be had everything is handed on at once.
class CPageRelay final : public CPageSink {
public:
    /// `sink` must outlive this. It is called from the other thread, but for Form().
    explicit CPageRelay(CPageSink& sink);
    ~CPageRelay() override;

    [[nodiscard]] const CPageForm& Form() const override { return sink_.Form(); }
    void AddStyle(std::string_view block) override;
    void AddText(std::string_view text) override;
    void ClosePage() override;
    void BeginRows(const PageRows& table) override;
    void BeginDay(std::string_view day) override;
    void EndRows() override;

    /// Waits until all is handed on. Throws what the sink has thrown, after which nothing more went to it. Nothing may
    /// follow.
    void Finish();

private:
    using Work = std::function<void()>;

    void HandOn(Work work);
    void Run();
    void End();

    CPageSink& sink_;
    std::mutex lock_;
    std::condition_variable changed_;
    std::deque<Work> waiting_;
    bool isEnding_ = false;
    std::exception_ptr thrown_;
    std::thread thread_;  // the last: it uses the others
};

}  // namespace tradebill
