// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

/// The connection of a conversion to its user. Conversions do not know whether this is a terminal, a window,
/// or a test.
namespace vexlator::ui {

/// The small window with the progress of one conversion. Calls are cheap: call Progress() for every feature.
class FormView {
public:
    virtual ~FormView() = default;
    virtual void SetCaption(std::string_view text) = 0;
    /// The current object: a feature code, a file; "Completed!" at the end.
    virtual void SetLabel(std::string_view text) = 0;
    /// `done` of `total` features; total 0 means unknown.
    virtual void Progress(std::uint64_t done, std::uint64_t total) = 0;
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// A message that the user must see and confirm.
    virtual void ShowMessage(std::string_view text) = 0;
    /// A question; true for Yes. Without a user the answer is No.
    virtual bool AskYesNo(std::string_view text) = 0;
    /// A plain line about the run: a summary, lost values, missing files.
    virtual void Report(std::string_view line) = 0;
    /// The view of one conversion, visible for the lifetime of the object.
    virtual std::unique_ptr<FormView> ShowForm(std::string_view name) = 0;
    /// A pause for windows to repaint. Without windows it returns at once.
    virtual void Settle(double seconds) = 0;
    virtual void Beep() = 0;
};

}  // namespace vexlator::ui
