// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace vexlator::ui {

/// The last line of a terminal, rewritten in place.
class ProgressLine {
public:
    explicit ProgressLine(std::FILE* terminal) : terminal_(terminal) {}
    void Show(std::string_view text);
    /// Removes the line, so that another can be written in its place.
    void Erase();

private:
    std::FILE* terminal_;
    bool shown_ = false;
};

/// Shows a conversion's feature code, count and rate on the progress line, at most ten times a second. Most
/// calls of Progress() do not read the clock and cost only a subtraction.
class ProgressView : public FormView {
public:
    explicit ProgressView(ProgressLine& line) : line_(line) {}
    ~ProgressView() override { line_.Erase(); }
    ProgressView(const ProgressView&) = delete;
    ProgressView& operator=(const ProgressView&) = delete;

    void SetCaption(std::string_view) override {}
    void SetLabel(std::string_view text) override;
    void Progress(std::uint64_t done, std::uint64_t total) override {
        if (--callsToLook_ == 0) Look(done, total);
    }

private:
    using Time = std::chrono::steady_clock::time_point;

    void Look(std::uint64_t done, std::uint64_t total);
    std::string Text(std::uint64_t done, std::uint64_t total, Time now) const;

    ProgressLine& line_;
    std::string label_;
    std::uint32_t callsPerLook_ = 1;
    std::uint32_t callsToLook_ = 1;
    std::uint64_t firstDone_ = 0;  ///< the count at the first display of the label
    Time firstTime_;               ///< the time of that display; unset: not yet
    Time lastLook_;
    Time lastShown_;
};

}  // namespace vexlator::ui
