// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/ImageFrame.h"

#include "desktop/application/Texts.h"
#include "desktop/georef/ImageView.h"

#include <QGridLayout>
#include <QScrollBar>

namespace vexlator::desktop {

ImageFrame::ImageFrame(QWidget* parent)
    : QFrame(parent),
      picture_(new ImageView),
      horizontal_(new QScrollBar(Qt::Horizontal)),
      vertical_(new QScrollBar(Qt::Vertical)) {
    setObjectName(QStringLiteral("fraPic"));
    setFrameShape(QFrame::StyledPanel);
    horizontal_->setObjectName(QStringLiteral("HScroll"));
    horizontal_->setAccessibleName(Texts::tr("Scroll the image sideways"));
    vertical_->setObjectName(QStringLiteral("VScroll"));
    vertical_->setAccessibleName(Texts::tr("Scroll the image up and down"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(picture_, 0, 0);
    grid->addWidget(vertical_, 0, 1);
    grid->addWidget(horizontal_, 1, 0);
    for (QScrollBar* bar : {horizontal_, vertical_}) {
        bar->hide();
        connect(bar, &QScrollBar::valueChanged, this, [this] { Scroll(); });
    }
}

void ImageFrame::Follow() {
    isFollowing_ = true;
    double ratio = picture_->devicePixelRatioF();
    QSizeF whole = picture_->WholeSize(), room = QSizeF(contentsRect().size()) * ratio;
    double thickness = vertical_->sizeHint().width() * ratio;
    bool isHigh = whole.height() > room.height();
    bool isWide = whole.width() > room.width() - (isHigh ? thickness : 0);
    isHigh = whole.height() > room.height() - (isWide ? thickness : 0);
    horizontal_->setVisible(isWide);
    vertical_->setVisible(isHigh);
    FollowAlong(*horizontal_, whole.width(), picture_->width() * ratio, picture_->Offset().x());
    FollowAlong(*vertical_, whole.height(), picture_->height() * ratio, picture_->Offset().y());
    isFollowing_ = false;
}

void ImageFrame::FollowAlong(QScrollBar& bar, double whole, double seen, double offset) {
    bar.setRange(0, qMax(0, qRound(whole - seen)));
    bar.setPageStep(qMax(1, qRound(seen)));
    bar.setSingleStep(qMax(1, qRound(seen / 20)));
    bar.setValue(qRound(offset));
}

void ImageFrame::Scroll() {
    if (!isFollowing_) picture_->ScrollTo(QPointF(horizontal_->value(), vertical_->value()));
}

}  // namespace vexlator::desktop
