// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <string>
#include <string_view>

namespace vexlator::formats {

/// The text of a job file in UTF-8: the file's own bytes where they are UTF-8 already, else decoded from
/// UTF-16 where they begin with its mark, else from Windows-1252. The file must outlive the object.
class JobText {
public:
    /// @throws platform::ReadError, without a file name, for an archive, which holds its job packed, and for
    /// bytes that are no UTF-16 behind its mark; of a text that has to be decoded, for a line of more than
    /// longestLine
    explicit JobText(const platform::MappedFile& file);
    JobText(const JobText&) = delete;
    JobText& operator=(const JobText&) = delete;

    std::string_view Text() const { return text_; }

private:
    std::string decoded_;
    std::string_view text_;
};

}  // namespace vexlator::formats
