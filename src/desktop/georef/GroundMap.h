// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"
#include "desktop/map/MapFile.h"
#include "util/Geometry.h"

#include <QThreadPool>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::desktop {

class MapView;

/// A drawing or package beside the image: a click tells a place on the ground. Control points are shown.
class GroundMap : public QWidget {
public:
    /// The installation outlives it.
    explicit GroundMap(config::Installation& installation, QWidget* parent = nullptr);

    /// Reads and shows it; goes on in the background.
    void Open(const std::string& path);
    void ChooseFile();
    MapView& Map() { return *map_; }
    /// Numbers and places.
    void SetMarks(std::vector<std::pair<int, util::PlanePoint>> marks, int selected);

    std::function<void(util::PlanePoint)> clicked;

private:
    class Marks;

    void Show(const MapFile& file);

    config::Installation& installation_;
    MapView* map_;
    Marks* marks_;
    std::uint64_t opened_ = 0;  ///< the newest file: what comes late does not count
    QThreadPool readers_;       ///< it is waited for when the window goes
};

}  // namespace vexlator::desktop
