// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// What a conversion knows of the person it works for. Conversions never know who listens: a terminal, a
/// window, or a test.
namespace vexlator::ui {

/// The small window that shows how far one conversion is. Calls are cheap: call Progress() for every feature.
class FormView {
public:
    virtual ~FormView() = default;
    virtual void SetCaption(std::string_view text) = 0;
    /// What is being worked on: a feature code, a file; "Completed!" at the end.
    virtual void SetLabel(std::string_view text) = 0;
    /// `done` of `total` features; total 0 when it is not known.
    virtual void Progress(std::uint64_t done, std::uint64_t total) = 0;
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// A fact that the person must see and confirm.
    virtual void ShowMessage(std::string_view text) = 0;
    /// A question; true for Yes. No one there means No.
    virtual bool AskYesNo(std::string_view text) = 0;
    /// A plain line about the run: its summary, what was cut, what does not exist.
    virtual void Report(std::string_view line) = 0;
    /// The view of one conversion, shown while the object lives.
    virtual std::unique_ptr<FormView> ShowForm(std::string_view name) = 0;
    /// A pause that lets windows repaint. Without windows there is nothing to wait for.
    virtual void Settle(double seconds) = 0;
    virtual void Beep() = 0;
};

}  // namespace vexlator::ui
