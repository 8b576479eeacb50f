// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "drawing/DrawingFile.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::exporter {

/// Makes the drawing's "Source" property the run's job. Without that property the run has none.
void ReadJobSource(config::Run& run, const std::vector<std::pair<std::string, std::string>>& properties);

/// Whether an attribute value names a photograph: it contains .JPG or .BMP, in any letter case.
bool NamesPhoto(std::string_view value);

/// The form of attribute values that name photographs.
class PhotoPaths {
public:
    enum class Form { Unchanged, Native, AsWritten };

    /// Values stay unchanged.
    PhotoPaths() = default;
    /// Values become paths below `folder`.
    PhotoPaths(std::string folder, Form form) : folder_(std::move(folder)), form_(form) {}

    bool AreChanged() const { return form_ != Form::Unchanged; }
    std::string PathOf(std::string_view value) const;
    /// Changes the values of a drawing or of a chunk of one.
    void ApplyTo(drawing::Drawing& drawing) const;

private:
    std::string folder_;
    Form form_ = Form::Unchanged;
};

/// Copies the photographs named in the attributes of the drawing's points, symbols and lines from
/// `sourceFolder` to `targetFolder`, by section PHOTO of gv.ini:
///     FixedExport, FixedExportFolder   copy to that folder instead
///     FIXEDSOURCE                      take them from that folder instead
///     DontCopy                         copy nothing: all count as missing
///     FullPath                         values become the full paths of the copies
///     FALSETARGET                      values become paths below that folder
///
/// With [THIRD] SSE a file of the target folder, `listName` with its extension, lists the copies: the
/// feature's first attribute value and the copy's path. MissingPhotos gets one line for every value whose
/// photo is missing, empty, unreadable, or outside the source folder, which is never accessed. Without a
/// source folder nothing happens. Returns the new form of the values.
/// @throws platform::ReadError for a damaged drawing, before anything is copied; platform::WriteError
PhotoPaths GatherPhotos(config::Run& run, drawing::DrawingFile& drawing, std::string_view sourceFolder,
                        std::string_view listName, std::string_view targetFolder,
                        std::string_view listExtension = "CSV");

config::KeyList PhotoKeys();

}  // namespace vexlator::exporter
