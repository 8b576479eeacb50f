// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/CommandWindow.h"

#include "desktop/application/Conversation.h"
#include "desktop/application/ProgressPanel.h"
#include "desktop/application/Texts.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vexlator::desktop {

CommandWindow::CommandWindow(const QString& command, Conversation& conversation)
    : conversation_(conversation), progress_(new ProgressPanel), lines_(new QPlainTextEdit) {
    setObjectName(QStringLiteral("frmCommand"));
    setWindowTitle(Texts::tr("Vexlator"));
    auto* name = new QLabel(command);
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    lines_->setReadOnly(true);
    lines_->setAccessibleName(Texts::tr("What the conversion says"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    cancel_ = buttons->button(QDialogButtonBox::Cancel);
    cancel_->setObjectName(QStringLiteral("btnCancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });

    auto* column = new QVBoxLayout(this);
    column->addWidget(name);
    column->addWidget(progress_);
    column->addWidget(lines_, 1);
    column->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 14);
    progress_->Follow(conversation);
}

void CommandWindow::Report(const QString& line) {
    lines_->appendPlainText(line);
}

void CommandWindow::reject() {
    if (conversation_.IsCancelled() || !AsksToCancel(this)) return;
    conversation_.Cancel();
    cancel_->setEnabled(false);
}

bool AsksToCancel(QWidget* parent) {
    QMessageBox box(QMessageBox::Question, Texts::tr("Vexlator"),
                    Texts::tr("A conversion is running. Cancel it?"), QMessageBox::NoButton, parent);
    box.setInformativeText(Texts::tr("Existing files stay unchanged."));
    QPushButton* cancel = box.addButton(Texts::tr("Cancel the conversion"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(Texts::tr("Go on"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == cancel;
}

}  // namespace vexlator::desktop
