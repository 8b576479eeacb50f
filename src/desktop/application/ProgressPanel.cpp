// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/ProgressPanel.h"

#include "desktop/application/Texts.h"

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

namespace vexlator::desktop {

namespace {

/// Often enough to seem steady, seldom enough to cost nothing.
constexpr int looksEvery = 100;  // ms
constexpr int barSteps = 1000;

QString Duration(qint64 milliseconds) {
    qint64 seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

}  // namespace

ProgressPanel::ProgressPanel(QWidget* parent)
    : QWidget(parent), text_(new QLabel(this)), time_(new QLabel(this)), bar_(new QProgressBar(this)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(text_, 0, 0);
    grid->addWidget(time_, 0, 1, Qt::AlignRight);
    grid->addWidget(bar_, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    text_->setTextFormat(Qt::PlainText);
    text_->setMinimumWidth(1);  // a long text does not widen the window
    bar_->setTextVisible(false);
    bar_->setRange(0, barSteps);
    bar_->setAccessibleName(Texts::tr("Progress of the conversion"));
    timer_.setInterval(looksEvery);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Look(); });
}

void ProgressPanel::Follow(const Conversation& conversation) {
    conversation_ = &conversation;
    files_ = filesDone_ = 0;
    elapsed_.start();
    timer_.start();
    Look();
}

void ProgressPanel::Stop(const QString& line) {
    Look();
    timer_.stop();
    conversation_ = nullptr;
    bar_->setRange(0, barSteps);
    text_->setText(line);
}

void ProgressPanel::SetFiles(int done, int total) {
    filesDone_ = done;
    files_ = total;
}

void ProgressPanel::Look() {
    if (!conversation_) return;
    Standing now = conversation_->Now();
    QString label = Text(now.label.empty() ? now.caption : now.label);
    if (now.total > 0)
        label =
            Texts::tr("%1: %2 of %3").arg(label, QLocale().toString(now.done), QLocale().toString(now.total));
    if (conversation_->IsCancelled()) label = Texts::tr("Stopping; what was there before stays …");
    text_->setText(label);
    time_->setText(Duration(elapsed_.elapsed()));
    bool isKnown = files_ > 1 || now.total > 0;
    bar_->setRange(0, isKnown ? barSteps : 0);
    double part = now.total > 0 ? static_cast<double>(now.done) / static_cast<double>(now.total) : 0;
    if (files_ > 1) part = static_cast<double>(filesDone_) / files_;
    bar_->setValue(static_cast<int>(part * barSteps));
}

}  // namespace vexlator::desktop
