// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/GroundMap.h"

#include "desktop/application/Texts.h"
#include "desktop/map/MapView.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <QFileDialog>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace vexlator::desktop {

/// The control points over a map; what the mouse does goes to the map.
class GroundMap::Marks : public QWidget {
public:
    explicit Marks(MapView& map) : QWidget(&map), map_(map) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setObjectName(QStringLiteral("qt_marks"));
    }
    std::vector<std::pair<int, util::PlanePoint>> places;
    int selected = 0;

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr double radius = 6;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        for (const auto& [number, ground] : places) {
            util::PlanePoint pixel = map_.Shown().ToPixels()(ground);
            QPointF at = QPointF(pixel.x, pixel.y) / devicePixelRatioF();
            if (!QRectF(rect()).contains(at)) continue;
            QColor colour = number == selected ? QColor(255, 140, 0) : QColor(0, 120, 215);
            QPainterPath path;
            path.addEllipse(at, radius, radius);
            QPainterPath text;
            text.addText(at + QPointF(radius + 3, -radius), font(), QString::number(number));
            painter.strokePath(path, QPen(Qt::white, 4));
            painter.strokePath(path, QPen(colour, 2));
            painter.strokePath(text, QPen(Qt::white, 3));
            painter.fillPath(text, colour);
        }
    }

private:
    const MapView& map_;
};

GroundMap::GroundMap(config::Installation& installation, QWidget* parent)
    : QWidget(parent), installation_(installation), map_(new MapView), marks_(new Marks(*map_)) {
    marks_->hide();
    map_->SetNotice(
        Texts::tr("Open a drawing that shows the ground: a click on it gives the selected point "
                  "its position."));
    map_->clicked = [this](render::PlanePoint ground) {
        if (clicked) clicked(ground);
    };
    map_->viewChanged = [this] {
        marks_->resize(map_->size());
        marks_->update();
    };
    auto* open = new QPushButton(Texts::tr("&Open drawing…"));
    open->setObjectName(QStringLiteral("btnDrawing"));
    connect(open, &QPushButton::clicked, this, [this] { ChooseFile(); });
    auto* bar = new QHBoxLayout;
    bar->addWidget(open);
    bar->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addLayout(bar);
    column->addWidget(map_, 1);
}

void GroundMap::SetMarks(std::vector<std::pair<int, util::PlanePoint>> marks, int selected) {
    marks_->places = std::move(marks);
    marks_->selected = selected;
    marks_->update();
}

void GroundMap::ChooseFile() {
    QString path = QFileDialog::getOpenFileName(
        this, Texts::tr("Open drawing"), {},
        Texts::tr("Drawings and packages (*.vdf *.VDF *.grp *.GRP)") + ";;" + Texts::tr("All files (*)"));
    if (!path.isEmpty()) Open(path.toStdString());
}

void GroundMap::Open(const std::string& path) {
    std::uint64_t number = ++opened_;
    map_->SetScene(nullptr);
    marks_->hide();
    map_->SetNotice(Texts::tr("Reading %1…").arg(Text(util::FileNameOf(path))));
    readers_.start([this, number, path, symbols = installation_.Settings().SymbolsDirectory] {
        // The widget waits for its readers before it goes, so that it is there for what they post.
        auto post = [this, number](std::function<void()> act) {
            QMetaObject::invokeMethod(
                this,
                [this, number, act = std::move(act)] {
                    if (number == opened_) act();
                },
                Qt::QueuedConnection);
        };
        try {
            post([this, file = ReadMapFile(path, symbols)] { Show(file); });
        } catch (const std::exception& error) {
            post([this, text = Text(error.what())] { map_->SetNotice(text); });
        }
    });
}

void GroundMap::Show(const MapFile& file) {
    if (file.scene->ItemCount() > 0) {
        map_->SetScene(file.scene);
        return marks_->show();
    }
    map_->SetNotice(Texts::tr("There is nothing to see in %1.").arg(Text(util::FileNameOf(file.path))));
}

}  // namespace vexlator::desktop
