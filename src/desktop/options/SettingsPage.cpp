// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/options/SettingsPage.h"

#include "desktop/application/Texts.h"
#include "platform/AsciiCase.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vexlator::desktop {

namespace {

enum Column { NameColumn, ValueColumn, DefaultColumn, MeaningColumn };
constexpr int placeRole = Qt::UserRole;

/// Only values can be edited.
class Table : public QTreeWidget {
public:
    Table() { setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed); }

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override {
        QModelIndex value = index.siblingAtColumn(ValueColumn);
        return QTreeWidget::edit(index.parent().isValid() ? value : index, trigger, event);
    }
};

}  // namespace

SettingsPage::SettingsPage(startup::OptionsModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      search_(new QLineEdit),
      table_(new Table),
      meaning_(new QLabel),
      reset_(new QPushButton(tr("&Clear value"))) {
    Layout();
    MakeRows();
    connect(search_, &QLineEdit::textChanged, this, [this] { Filter(); });
    connect(table_, &QTreeWidget::currentItemChanged, this, [this] { ShowMeaning(); });
    connect(table_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* row, int column) {
        const config::Key* key = KeyOf(row);
        if (isFilling_ || column != ValueColumn || !key) return;
        model_.Set(key->section, key->name, row->text(ValueColumn).toStdString());
        if (changed) changed();
    });
    connect(reset_, &QPushButton::clicked, this, [this] {
        if (QTreeWidgetItem* row = table_->currentItem()) row->setText(ValueColumn, QString());
    });
    ShowMeaning();
}

void SettingsPage::Layout() {
    auto* label = new QLabel(tr("&Search:"));
    label->setBuddy(search_);
    search_->setObjectName(QStringLiteral("txtSearch"));
    search_->setAccessibleName(tr("Search the settings"));
    search_->setPlaceholderText(tr("a name, or a word of its meaning"));
    search_->setClearButtonEnabled(true);
    table_->setObjectName(QStringLiteral("lstSettings"));
    table_->setAccessibleName(tr("All settings"));
    table_->setHeaderLabels({tr("Setting"), tr("Value"), tr("Default"), tr("Meaning")});
    table_->setUniformRowHeights(true);
    table_->setAlternatingRowColors(true);
    table_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 2px; }"));
    table_->header()->setSectionResizeMode(NameColumn, QHeaderView::ResizeToContents);
    meaning_->setWordWrap(true);
    meaning_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    meaning_->setMinimumHeight(3 * fontMetrics().lineSpacing());
    meaning_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(search_);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(meaning_, 1);
    bottom->addWidget(reset_, 0, Qt::AlignTop);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(table_, 1);
    layout->addLayout(bottom);
}

void SettingsPage::MakeRows() {
    isFilling_ = true;
    QTreeWidgetItem* section = nullptr;
    const config::KeyList& keys = model_.Keys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i].name.empty()) continue;
        QString title = "[" + Text(keys[i].section) + "]";
        if (!section || section->text(0) != title) {
            section = new QTreeWidgetItem(table_, {title});
            section->setFirstColumnSpanned(true);
            section->setExpanded(true);
        }
        auto* row = new QTreeWidgetItem(section, {Text(keys[i].name)});
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        row->setData(0, placeRole, qulonglong(i));
        row->setText(DefaultColumn, Text(keys[i].fallback));
        row->setText(MeaningColumn, Text(keys[i].meaning));
    }
    isFilling_ = false;
    Fill();
    table_->setColumnWidth(ValueColumn, 210);
    table_->setColumnWidth(DefaultColumn, 150);
}

const config::Key* SettingsPage::KeyOf(const QTreeWidgetItem* row) const {
    return row && row->parent() ? &model_.Keys()[row->data(0, placeRole).toULongLong()] : nullptr;
}

void SettingsPage::Fill() {
    isFilling_ = true;
    for (int i = 0; i < table_->topLevelItemCount(); ++i)
        for (int j = 0; j < table_->topLevelItem(i)->childCount(); ++j)
            ShowRow(*table_->topLevelItem(i)->child(j));
    isFilling_ = false;
    ShowMeaning();
}

void SettingsPage::ShowRow(QTreeWidgetItem& row) {
    const config::Key& key = *KeyOf(&row);
    row.setText(ValueColumn, Text(model_.Value(key.section, key.name)));
    QFont font = table_->font();
    font.setBold(model_.DiffersFromDefault(key));
    font.setItalic(model_.IsChanged(key.section, key.name));
    row.setFont(NameColumn, font);
    row.setFont(ValueColumn, font);
    row.setText(NameColumn, Text(key.name) + (font.bold() ? QStringLiteral("  ●") : QString()));
}

void SettingsPage::Filter() {
    QString wanted = search_->text().trimmed();
    for (int i = 0; i < table_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* section = table_->topLevelItem(i);
        bool isSection = section->text(0).contains(wanted, Qt::CaseInsensitive), hasAny = false;
        for (int j = 0; j < section->childCount(); ++j) {
            QTreeWidgetItem* row = section->child(j);
            bool isWanted = isSection;
            for (int column : {NameColumn, ValueColumn, MeaningColumn})
                isWanted |= row->text(column).contains(wanted, Qt::CaseInsensitive);
            row->setHidden(!isWanted);
            hasAny |= isWanted;
        }
        section->setHidden(!hasAny);
    }
}

void SettingsPage::ShowMeaning() {
    const config::Key* key = KeyOf(table_->currentItem());
    reset_->setEnabled(key && !model_.Value(key->section, key->name).empty());
    if (!key)
        return meaning_->setText(tr(
            "● marks a value that differs from its default. Italics mark changes that are not written yet."));
    meaning_->setText("<b>[" + Text(key->section).toHtmlEscaped() + "] " + Text(key->name).toHtmlEscaped() +
                      "</b><br>" + Text(key->Explanation()).toHtmlEscaped());
}

void SettingsPage::GoTo(const std::string& section, const std::string& name) {
    search_->clear();
    for (int i = 0; i < table_->topLevelItemCount(); ++i)
        for (int j = 0; j < table_->topLevelItem(i)->childCount(); ++j) {
            QTreeWidgetItem* row = table_->topLevelItem(i)->child(j);
            const config::Key& key = *KeyOf(row);
            if (!platform::SameNoCase(key.section, section) || !platform::SameNoCase(key.name, name))
                continue;
            table_->setCurrentItem(row, ValueColumn);
            table_->scrollToItem(row);
            table_->setFocus();
            return;
        }
}

}  // namespace vexlator::desktop
