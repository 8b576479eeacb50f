// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"

#include <functional>
#include <string>

class QWidget;

namespace vexlator::test {

/// Every window of the desktop, as a person sees it at work: an installation of its own, the example data.
class Windows {
public:
    /// `folder` is empty, and takes the installation, the data and what is made of them.
    explicit Windows(std::string folder);

    using Look = std::function<void(const std::string& name, QWidget& window)>;
    /// Shows the windows one by one; `look` is called once each is drawn.
    void ForEach(const Look& look);

private:
    void ShowSelection(const Look& look);
    void ShowCommand(const Look& look);
    void ShowMap(const Look& look);
    void ShowOptions(const Look& look);
    void ShowGeoreferencing(const Look& look);
    /// The path of a file that it writes.
    std::string Written(const std::string& name, const char* content) const;
    void ShowStyling(const Look& look);
    void ShowStyleEditor(const Look& look);

    std::string folder_;
    config::Installation installation_;
};

/// Lets the windows work until something holds; false when it does not within a minute. Boxes that come up
/// meanwhile are closed with their default answer.
bool WorkUntil(const std::function<bool()>& holds);

}  // namespace vexlator::test
