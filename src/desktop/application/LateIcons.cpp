// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/LateIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <memory>
#include <optional>
#include <utility>

namespace vexlator::desktop {

namespace {

class Engine : public QIconEngine {
public:
    explicit Engine(std::function<QIcon()> make) : make_(std::move(make)) {}

    void paint(QPainter* painter, const QRect& box, QIcon::Mode mode, QIcon::State state) override {
        Icon().paint(painter, box, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Icon().pixmap(size, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return Icon().actualSize(size, mode, state);
    }
    QIconEngine* clone() const override { return new Engine(make_); }

private:
    const QIcon& Icon() {
        if (!icon_) icon_ = make_();
        return *icon_;
    }

    std::function<QIcon()> make_;
    std::optional<QIcon> icon_;
};

}  // namespace

QIcon LateIcon(std::function<QIcon()> make) {
    return QIcon(new Engine(std::move(make)));
}

QIcon LateIconStyle::standardIcon(StandardPixmap which, const QStyleOption*, const QWidget*) const {
    // Neither the option nor the widget may be there any more when it is drawn.
    return LateIcon([this, which] { return QProxyStyle::standardIcon(which, nullptr, nullptr); });
}

}  // namespace vexlator::desktop
