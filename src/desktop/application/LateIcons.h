// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QProxyStyle>
#include <functional>

namespace vexlator::desktop {

/// An icon that is made when it is first drawn. Qt loads every plugin for images to make one from a file,
/// which costs as much time as the rest of a window.
QIcon LateIcon(std::function<QIcon()> make);

/// The style of the system, whose icons are late: a menu bar asks for one that it hardly ever shows.
class LateIconStyle : public QProxyStyle {
public:
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
};

}  // namespace vexlator::desktop
