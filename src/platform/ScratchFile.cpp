// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/ScratchFile.h"

#include "platform/Errors.h"
#include "platform/NativeFiles.h"
#include "platform/Paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <utility>

namespace vexlator::platform {

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 20;

}  // namespace

ScratchFile::ScratchFile(std::string_view folder)
    : folder_(PathToWrite(folder)), buffer_(std::make_unique_for_overwrite<char[]>(bufferSize)) {
    std::string name = folder_ + "/.scratch-XXXXXX" + std::string(temporaryEnding);
    descriptor_ = ::mkstemps(name.data(), static_cast<int>(temporaryEnding.size()));
    if (descriptor_ < 0) throw WriteError(folder_, Reason(errno));
    ::unlink(name.c_str());
}

ScratchFile::~ScratchFile() {
    ::close(descriptor_);
}

void ScratchFile::Flush() {
    const char* data = buffer_.get();
    for (std::size_t left = std::exchange(used_, 0); left > 0;) {
        ssize_t written = ::write(descriptor_, data, left);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw WriteError(folder_, Reason(errno));
        data += written;
        left -= static_cast<std::size_t>(written);
        flushed_ += static_cast<std::uint64_t>(written);
    }
}

void ScratchFile::Append(std::string_view bytes) {
    while (!bytes.empty()) {
        if (used_ == bufferSize) Flush();
        std::size_t piece = std::min(bytes.size(), bufferSize - used_);
        std::memcpy(buffer_.get() + used_, bytes.data(), piece);
        used_ += piece;
        bytes.remove_prefix(piece);
    }
}

void ScratchFile::ReadAt(std::uint64_t offset, char* target, std::size_t size) {
    Flush();
    while (size > 0) {
        ssize_t got = ::pread(descriptor_, target, size, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) throw WriteError(folder_, Reason(got < 0 ? errno : EIO));
        target += got;
        size -= static_cast<std::size_t>(got);
        offset += static_cast<std::uint64_t>(got);
    }
}

}  // namespace vexlator::platform
