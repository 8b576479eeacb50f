// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/OptionsModel.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace vexlator::desktop {

/// Every setting of gv.ini, to be searched and changed.
class SettingsPage : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(SettingsPage)
public:
    explicit SettingsPage(startup::OptionsModel& model, QWidget* parent = nullptr);

    /// The model's values.
    void Fill();
    /// Selects a setting, and clears a search that hides it.
    void GoTo(const std::string& section, const std::string& key);

    std::function<void()> changed;  ///< the model has changed

private:
    void MakeRows();
    void Layout();
    void ShowRow(QTreeWidgetItem& row);
    void Filter();
    void ShowMeaning();
    const config::Key* KeyOf(const QTreeWidgetItem* row) const;

    startup::OptionsModel& model_;
    QLineEdit* search_;
    QTreeWidget* table_;
    QLabel* meaning_;
    QPushButton* reset_;
    bool isFilling_ = false;
};

}  // namespace vexlator::desktop
