// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/styling/ClearChecks.h"

#include <functional>

namespace vexlator::desktop {

/// Looks in a StyleTable drop down: the colours, the mobile styles of the column, another mobile style file.
/// Flags are check boxes in the middle of their cells.
class LookDelegate : public ClearCheckDelegate {
public:
    using ClearCheckDelegate::ClearCheckDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

    std::function<void()> selectFile;  ///< the entry for another mobile style file was chosen
};

}  // namespace vexlator::desktop
