// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace vexlator::util {

/// Batches that a thread of its own fills while the caller uses earlier batches. There are only a few. Each
/// is filled again when the caller is done with it.
template <typename Batch>
class ReadAhead {
public:
    /// Replaces the contents of a batch by the next ones. Returns false with the last batch, which may be
    /// empty. Runs in the thread. Next() throws its exceptions, after the batches filled so far, including
    /// the batch of the failed call.
    using Fill = std::function<bool(Batch&)>;

    explicit ReadAhead(Fill fill, std::size_t batches = 3)
        : fill_(std::move(fill)),
          ring_(batches),
          thread_([this](const std::stop_token& stop) { Run(stop); }) {}
    /// Waits for the batch in work.
    ~ReadAhead() = default;
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// The next batch, which is the caller's until the next call; nullptr after the last.
    /// @throws exceptions of Fill
    Batch* Next() {
        std::unique_lock lock(mutex_);
        if (std::exchange(inUse_, false)) {
            ++used_;
            changed_.notify_all();
        }
        changed_.wait(lock, [this] { return filled_ > used_ || ended_; });
        inUse_ = filled_ > used_;
        if (inUse_) return &ring_[used_ % ring_.size()];
        if (error_) std::rethrow_exception(error_);
        return nullptr;
    }

private:
    void Run(const std::stop_token& stop) {
        for (bool more = true; more;) {
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, stop, [this] { return filled_ - used_ < ring_.size(); });
                if (stop.stop_requested()) return;
            }
            std::exception_ptr error;
            try {
                more = fill_(ring_[filled_ % ring_.size()]);
            } catch (...) {
                error = std::current_exception();
                more = false;
            }
            {
                std::lock_guard lock(mutex_);
                ++filled_;
                error_ = error;
                ended_ = !more;
            }
            changed_.notify_all();
        }
    }

    Fill fill_;
    std::vector<Batch> ring_;
    std::mutex mutex_;  ///< guards the members below
    std::condition_variable_any changed_;
    std::size_t filled_ = 0, used_ = 0;  ///< number of batches so far
    bool inUse_ = false, ended_ = false;
    std::exception_ptr error_;
    std::jthread thread_;  ///< the last member: it ends before the others
};

}  // namespace vexlator::util
