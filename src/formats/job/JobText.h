// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <string>
#include <string_view>

namespace vexlator::formats {

/// The text of a job file in UTF-8: the file's own bytes if they are valid UTF-8. A file with a UTF-16 mark
/// is decoded from UTF-16, any other from Windows-1252. The file must outlive the object.
class JobText {
public:
    /// @throws platform::ReadError, without a file name, for an archive, which contains a packed job, and for
    /// invalid UTF-16 after its mark. For decoded text also for a line of more than longestLine
    explicit JobText(const platform::MappedFile& file);
    JobText(const JobText&) = delete;
    JobText& operator=(const JobText&) = delete;

    std::string_view Text() const { return text_; }

private:
    std::string decoded_;
    std::string_view text_;
};

}  // namespace vexlator::formats
