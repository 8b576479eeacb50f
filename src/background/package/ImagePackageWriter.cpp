// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/ImagePackageWriter.h"

#include "background/package/BagDirectory.h"
#include "background/package/ImageTile.h"
#include "platform/OutputSet.h"
#include "util/Numbers.h"
#include "util/Paths.h"

namespace vexlator::background {

ImagePackageWriter::ImagePackageWriter(std::string_view packageFile)
    : packageFile_(packageFile), tiles_(util::ChangeExtension(packageFile, "BAG")) {}

void ImagePackageWriter::EndMember(std::string name) {
    std::uint64_t offset = members_.empty() ? 0 : members_.back().offset + members_.back().length;
    members_.push_back({std::move(name), offset, tiles_.Size() - offset});
}

void ImagePackageWriter::EndTile(const formats::WorldFile& world, int width, int height) {
    constexpr int digits = 8;
    std::string name = util::ZeroPadded(static_cast<int>(members_.size() / 2) + 1, digits);
    EndMember(name + ".JPG");
    std::string text = formats::WorldFileText(world);
    tiles_.Write(text);
    EndMember(name + ".JGW");
    // The box is that of the terms as they read back.
    ImageTile tile{"", {}, width, height, formats::ParseWorldFile(text)};
    index_.AddIndexEntry(name + ".JPG", tile.GroundBox(), member::image);
}

void ImagePackageWriter::Commit() {
    platform::OutputSet files;
    platform::OutputFile& container = files.Add(util::ChangeExtension(packageFile_, "BAG"));
    std::uint64_t directory = members_.size() * sizeof(BagEntry);
    for (const Member& member : members_)
        WriteRecord(container, MakeEntry(container, member.name, directory + member.offset, member.length));
    container.WriteFrom(tiles_, 0, tiles_.Size());
    files.Add(packageFile_).Write(index_.Bytes());
    files.Finish();
    files.Commit();
    for (const char* extension : {"LAY", "GAZ", "BME"})
        platform::RemoveFile(util::ChangeExtension(packageFile_, extension));
}

}  // namespace vexlator::background
