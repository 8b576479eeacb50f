// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes, with their own checksums and with correct ones, are a drawing or give an error. A drawing that
// is saved and opened again is the same.
#include "drawing/Vdf.h"

#include "BoundedDump.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <xxhash.h>

using namespace vexlator;
using namespace vexlator::drawing;

namespace {

/// The bytes of a file, aligned to 8.
class File {
public:
    File(const std::uint8_t* data, std::size_t size) : words_(size / 8 + 1), size_(size) {
        if (size > 0) std::memcpy(words_.data(), data, size);
    }
    std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(words_)).first(size_); }

    /// Gives the file the marks and checksums that make a reader continue.
    void Seal() {
        if (size_ < vdf::headerSize + vdf::trailerSize) return;
        std::uint64_t trailer = size_ - vdf::trailerSize, index = Number(trailer);
        Put(0, vdf::magic);
        SetNumber(8, vdf::version);
        Put(size_ - 8, vdf::endMagic);
        if (index < vdf::headerSize || index > trailer) return;
        SetNumber(trailer + 8, trailer - index);
        SetNumber(trailer + 16, XXH3_64bits(At(index), trailer - index));
        SealFrames(index);
    }

private:
    void SealFrames(std::uint64_t end) {
        std::uint64_t frame = vdf::headerSize;
        while (frame <= end && end - frame >= vdf::frameSize) {
            std::uint64_t begin = frame + vdf::frameSize, length = Number(frame);
            if (length > end - begin) return;
            SetNumber(frame + 8, XXH3_64bits(At(begin), length));
            frame = begin + (length + 7) / 8 * 8;
        }
    }
    char* At(std::uint64_t offset) { return reinterpret_cast<char*>(words_.data()) + offset; }
    std::uint64_t Number(std::uint64_t offset) {
        std::uint64_t number;
        std::memcpy(&number, At(offset), sizeof number);
        return number;
    }
    void SetNumber(std::uint64_t offset, std::uint64_t number) {
        std::memcpy(At(offset), &number, sizeof number);
    }
    void Put(std::uint64_t offset, std::string_view text) {
        std::memcpy(At(offset), text.data(), text.size());
    }

    std::vector<std::uint64_t> words_;
    std::size_t size_;
};

void Check(std::span<const std::byte> bytes) {
    static const test::TempFolder folder;
    Drawing drawing;
    try {
        ReadVdf(bytes, drawing);
    } catch (const platform::ReadError&) {
        return;
    }
    try {
        std::string dump = fuzz::Dump(drawing);
        drawing.saveAs(folder / "again.VDF");
        Drawing again;
        again.open(folder / "again.VDF");
        if (fuzz::Dump(again) != dump) std::abort();
    } catch (const fuzz::TooLong&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    File file(data, size);
    Check(file.Bytes());
    file.Seal();
    Check(file.Bytes());
    return 0;
}
