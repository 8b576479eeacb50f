// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xml/ByteBlocks.h"

#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "util/Numbers.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>
#define ZLIB_CONST
#include <zlib.h>

namespace vexlator::formats {

namespace {

using platform::ReadError;

constexpr std::uint64_t highestRatio = 1000;
constexpr std::uint64_t alwaysAllowed = std::uint64_t{64} << 20;
constexpr int gzipOnly = MAX_WBITS + 16;

class PlainBlocks : public ByteBlocks {
public:
    explicit PlainBlocks(std::span<const std::byte> file) : file_(file) {}
    std::string_view Next() override {
        begin_ = end_;
        end_ = std::min(begin_ + blockSize, file_.size());
        return {reinterpret_cast<const char*>(file_.data()) + begin_, end_ - begin_};
    }
    std::size_t Consumed() const override { return begin_; }

private:
    std::span<const std::byte> file_;
    std::size_t begin_ = 0, end_ = 0;
};

class GzipBlocks : public ByteBlocks {
public:
    GzipBlocks(std::span<const std::byte> file, std::uint64_t mostUnpacked)
        : file_(file), mostUnpacked_(mostUnpacked), block_(blockSize) {
        if (inflateInit2(&stream_, gzipOnly) != Z_OK) throw std::bad_alloc();
    }
    ~GzipBlocks() override { inflateEnd(&stream_); }
    GzipBlocks(const GzipBlocks&) = delete;
    GzipBlocks& operator=(const GzipBlocks&) = delete;

    std::string_view Next() override {
        stream_.next_out = reinterpret_cast<Bytef*>(block_.data());
        stream_.avail_out = static_cast<uInt>(block_.size());
        while (stream_.avail_out > 0 && !ended_) Inflate();
        std::size_t size = block_.size() - stream_.avail_out;
        unpacked_ += size;
        CheckSize();
        return {block_.data(), size};
    }
    std::size_t Consumed() const override { return position_; }

private:
    void Inflate() {
        stream_.next_in = reinterpret_cast<const Bytef*>(file_.data() + position_);
        stream_.avail_in = static_cast<uInt>(std::min(file_.size() - position_, blockSize));
        uInt before = stream_.avail_in;
        int result = inflate(&stream_, Z_NO_FLUSH);
        position_ += before - stream_.avail_in;
        if (result == Z_STREAM_END)
            EndMember();
        else if (result == Z_BUF_ERROR || (result == Z_OK && before == 0))
            Fail("the compressed file ends too early");
        else if (result != Z_OK)
            Fail(std::string("the compressed data is damaged") +
                 (stream_.msg ? std::string(": ") + stream_.msg : ""));
    }

    /// Another member can follow. Padding after the last member is ignored.
    void EndMember() {
        ended_ = !IsGzip(file_.subspan(position_));
        if (!ended_) inflateReset(&stream_);
    }

    void CheckSize() const {
        if (unpacked_ > mostUnpacked_)
            Fail("unpacks to more than " + util::GroupedCount(mostUnpacked_ >> 20) + " MB");
        if (unpacked_ > alwaysAllowed && unpacked_ / highestRatio > position_)
            Fail("unpacks to more than 1,000 times its size");
    }

    [[noreturn]] void Fail(const std::string& reason) const {
        throw ReadError("", ReadError::AtByte(position_), reason);
    }

    std::span<const std::byte> file_;
    std::uint64_t mostUnpacked_, unpacked_ = 0;
    std::size_t position_ = 0;
    bool ended_ = false;
    std::vector<char> block_;
    z_stream stream_{};
};

class DecodedBlocks : public ByteBlocks {
public:
    explicit DecodedBlocks(std::unique_ptr<ByteBlocks> blocks) : blocks_(std::move(blocks)) {}
    std::string_view Next() override {
        text_.clear();
        platform::AppendUtf8FromWindows1252(text_, blocks_->Next());
        return text_;
    }
    std::size_t Consumed() const override { return blocks_->Consumed(); }

private:
    std::unique_ptr<ByteBlocks> blocks_;
    std::string text_;
};

}  // namespace

bool IsGzip(std::span<const std::byte> file) {
    return file.size() >= 2 && file[0] == std::byte{0x1F} && file[1] == std::byte{0x8B};
}

std::unique_ptr<ByteBlocks> BlocksOf(std::span<const std::byte> file, std::uint64_t mostUnpacked) {
    if (IsGzip(file)) return std::make_unique<GzipBlocks>(file, mostUnpacked);
    return std::make_unique<PlainBlocks>(file);
}

std::unique_ptr<ByteBlocks> FromWindows1252(std::unique_ptr<ByteBlocks> blocks) {
    return std::make_unique<DecodedBlocks>(std::move(blocks));
}

}  // namespace vexlator::formats
