// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vexlator::platform {

/// Input that cannot be used: the file, the place in it, and the reason. The low layers know the place ("byte
/// 1204", "line 7", "record 17: ..."). The code that opened the file adds its name with InFile(). What()
/// reads as "FIELD.SHP: byte 1204: 90000 points announced, 312 bytes left".
class ReadError : public std::runtime_error {
public:
    ReadError(std::string file, std::string place, std::string reason)
        : std::runtime_error(Compose(file, place, reason)),
          file_(std::move(file)),
          place_(std::move(place)),
          reason_(std::move(reason)) {}

    const std::string& File() const { return file_; }
    const std::string& Place() const { return place_; }
    const std::string& Reason() const { return reason_; }

    /// The same error, with the file's name if it had none.
    ReadError InFile(const std::string& file) const {
        return ReadError(file_.empty() ? file : file_, place_, reason_);
    }

    static std::string AtByte(std::uint64_t offset) { return "byte " + std::to_string(offset); }
    static std::string AtLine(std::uint64_t line) { return "line " + std::to_string(line); }

private:
    static std::string Compose(const std::string& file, const std::string& place, const std::string& reason) {
        std::string text = file;
        if (!place.empty()) text += (text.empty() ? "" : ": ") + place;
        return text + (text.empty() ? "" : ": ") + reason;
    }
    std::string file_, place_, reason_;
};

/// Output that could not be written: the native path and the system's reason. The old file is unchanged.
class WriteError : public std::runtime_error {
public:
    WriteError(const std::string& file, const std::string& reason)
        : std::runtime_error(file + ": " + reason), file_(file) {}
    const std::string& File() const { return file_; }

private:
    std::string file_;
};

}  // namespace vexlator::platform
