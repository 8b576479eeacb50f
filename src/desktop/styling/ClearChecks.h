// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QStyledItemDelegate>

namespace vexlator::desktop {

/// A palette whose check boxes can be seen when they are off: their outline is a darker window colour, which
/// is lost on dark windows.
inline QPalette WithClearChecks(QPalette palette) {
    constexpr int dark = 128;  // of 255
    bool isDark = palette.color(QPalette::Window).lightness() < dark;
    if (isDark) palette.setColor(QPalette::Window, palette.color(QPalette::WindowText));
    return palette;
}

/// Items with such check boxes.
class ClearCheckDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->palette = WithClearChecks(option->palette);
    }
};

}  // namespace vexlator::desktop
