// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/paint/BookPages.h"
#include "mapbook/paint/PagePainter.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace vexlator::mapbook {

/// Height of a page's paper in the PDF file, in points: the painter's device rounds it.
double PdfHeightOf(const BookPage& page);

/// The pages of a book as a PDF file, drawn in a thread of its own. Destroyed before its end, it stops.
class PdfPages {
public:
    /// What it gets must outlive it. The native path is that of a scratch file.
    PdfPages(const BookContent& content, const std::vector<BookPage>& pages, std::string path);

    /// Waits at most this time. True if the file is complete. Rethrows what the thread has thrown.
    bool WaitForEnd(std::chrono::milliseconds most);
    std::size_t Finished() const { return finished_; }

private:
    void Draw(const std::stop_token& stop);

    const BookContent& content_;
    const std::vector<BookPage>& pages_;
    std::string path_;
    std::atomic<std::size_t> finished_ = 0;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool hasEnded_ = false;
    std::exception_ptr problem_;
    std::jthread thread_;  ///< last: it ends before what it uses
};

}  // namespace vexlator::mapbook
