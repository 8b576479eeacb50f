// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/xlsx/XlsxCheck.h"

#include <memory>
#include <string_view>
#include <vector>
#include <zip.h>

namespace vexlator::formats {

namespace {

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Part = std::unique_ptr<zip_file_t, Discard>;

/// Counts the rows in a part's text, which comes in pieces.
class RowCounter {
public:
    void Add(std::string_view piece) {
        text_.append(piece);
        for (std::size_t at = 0; (at = text_.find(rowBegin, at)) != std::string::npos; at += rowBegin.size())
            ++rows_;
        text_.erase(0, text_.size() - std::min(text_.size(), kept));
        tail_.append(piece.substr(piece.size() - std::min(piece.size(), sheetEnd.size())));
        tail_.erase(0, tail_.size() - std::min(tail_.size(), sheetEnd.size()));
    }
    bool IsComplete() const { return tail_ == sheetEnd; }
    std::uint64_t Rows() const { return rows_; }

private:
    static constexpr std::string_view rowBegin = "<row ", sheetEnd = "</worksheet>";
    static constexpr std::size_t kept = rowBegin.size() - 1;  ///< of a piece, too short for a whole begin

    std::string text_, tail_;
    std::uint64_t rows_ = 0;
};

std::optional<std::uint64_t> RowsOf(zip_t& archive, zip_uint64_t index) {
    Part part(zip_fopen_index(&archive, index, 0));
    if (!part) return std::nullopt;
    RowCounter counter;
    std::vector<char> buffer(std::size_t{1} << 18);
    zip_int64_t size = 0;
    while ((size = zip_fread(part.get(), buffer.data(), buffer.size())) > 0)
        counter.Add({buffer.data(), static_cast<std::size_t>(size)});
    if (size < 0 || !counter.IsComplete()) return std::nullopt;
    return counter.Rows();
}

}  // namespace

std::optional<std::uint64_t> XlsxRowCount(const std::string& nativePath) {
    Archive archive(zip_open(nativePath.c_str(), ZIP_RDONLY, nullptr));
    if (!archive) return std::nullopt;
    std::uint64_t rows = 0;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive.get(), 0); ++i) {
        const char* name = zip_get_name(archive.get(), static_cast<zip_uint64_t>(i), 0);
        if (!name || !std::string_view(name).starts_with("xl/worksheets/sheet")) continue;
        std::optional<std::uint64_t> found = RowsOf(*archive, static_cast<zip_uint64_t>(i));
        if (!found) return std::nullopt;
        rows += *found;
    }
    return rows;
}

}  // namespace vexlator::formats
