// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/LayerPanel.h"

#include "desktop/map/Icons.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vexlator::desktop {

namespace {

constexpr int placeRole = Qt::UserRole;

}  // namespace

LayerPanel::LayerPanel(QWidget* parent) : QWidget(parent), search_(new QLineEdit), list_(new QTreeWidget) {
    auto* label = new QLabel(tr("Fin&d:"));
    label->setBuddy(search_);
    search_->setClearButtonEnabled(true);
    search_->setAccessibleName(tr("Find a layer"));
    list_->setColumnCount(2);
    list_->setHeaderLabels({tr("Layer"), tr("Items")});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setStyleSheet(QStringLiteral("QTreeView::item { padding: 2px; }"));
    list_->setIconSize({22, 16});
    list_->setAccessibleName(tr("Layers"));
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto* all = new QPushButton(tr("Show &all"));
    auto* none = new QPushButton(tr("&Hide all"));

    auto* top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(search_);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(all);
    bottom->addWidget(none);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(list_);
    layout->addLayout(bottom);

    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
    connect(all, &QPushButton::clicked, this, [this] { CheckAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { CheckAll(false); });
    connect(list_, &QTreeWidget::itemChanged, this, [this] {
        if (changed) changed();
    });
}

void LayerPanel::SetLayers(std::span<const render::SceneLayer> layers) {
    const QSignalBlocker blocker(list_);
    list_->clear();
    for (std::size_t i = 0; i < layers.size(); ++i) {
        if (layers[i].items == 0) continue;
        auto* row = new QTreeWidgetItem(list_);
        row->setText(0, QString::fromStdString(layers[i].name));
        row->setIcon(0, SwatchOf(layers[i]));
        row->setCheckState(0, Qt::Checked);
        row->setData(0, placeRole, qulonglong(i));
        row->setText(1, QLocale().toString(qulonglong(layers[i].items)));
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    Filter(search_->text());
}

std::vector<bool> LayerPanel::Hidden() const {
    std::vector<bool> hidden;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = list_->topLevelItem(i);
        std::size_t place = row->data(0, placeRole).toULongLong();
        hidden.resize(std::max(hidden.size(), place + 1));
        hidden[place] = row->checkState(0) != Qt::Checked;
    }
    return hidden;
}

void LayerPanel::CheckAll(bool isShown) {
    {
        const QSignalBlocker blocker(list_);
        for (int i = 0; i < list_->topLevelItemCount(); ++i)
            if (QTreeWidgetItem* row = list_->topLevelItem(i); !row->isHidden())
                row->setCheckState(0, isShown ? Qt::Checked : Qt::Unchecked);
    }
    list_->viewport()->update();
    if (changed) changed();
}

void LayerPanel::Filter(const QString& text) {
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = list_->topLevelItem(i);
        row->setHidden(!row->text(0).contains(text, Qt::CaseInsensitive));
    }
}

}  // namespace vexlator::desktop
