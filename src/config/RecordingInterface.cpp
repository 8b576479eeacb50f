// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/RecordingInterface.h"

#include "platform/Signals.h"

namespace vexlator::config {

namespace {

class QuietView : public ui::FormView {
public:
    void SetCaption(std::string_view) override {}
    void SetLabel(std::string_view) override {}
    void Progress(std::uint64_t, std::uint64_t) override { platform::ThrowIfStopped(); }
};

}  // namespace

std::unique_ptr<ui::FormView> RecordingInterface::ShowForm(std::string_view) {
    return std::make_unique<QuietView>();
}

}  // namespace vexlator::config
