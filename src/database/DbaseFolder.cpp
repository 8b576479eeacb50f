// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/DbaseFolder.h"

#include "database/DatabaseError.h"
#include "database/Statement.h"
#include "formats/dbf/DbfTable.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <algorithm>
#include <vector>

namespace vexlator::database {

using formats::DbfField;
using formats::DbfTable;

namespace {

bool IsNumber(const DbfField& field) {
    return field.type == 'N' || field.type == 'F';
}

std::string Encoding(const std::string& dbfPath, const DbfTable& table) {
    std::string cpg = util::ChangeExtension(dbfPath, "CPG");
    return formats::DbfEncoding(platform::FileExists(cpg) ? platform::ReadWholeFile(cpg) : "",
                                table.LanguageByte());
}

/// Blank values of types other than text are null. For null some programs write "*" into numbers and 0 into
/// dates.
bool IsNull(std::string_view value, char type) {
    if (type == 'C') return false;
    return value.empty() || value.starts_with('*') || (type == 'D' && value == "00000000");
}

/// 20240305 as 2024-03-05; anything else as it is.
std::string DateText(std::string text) {
    auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.size() != 8 || !std::ranges::all_of(text, isDigit)) return text;
    return text.substr(0, 4) + "-" + text.substr(4, 2) + "-" + text.substr(6);
}

/// Copies the records of one table.
class TableCopy {
public:
    TableCopy(Connection& connection, const std::string& path, std::string_view name)
        : connection_(connection), file_(path), table_(file_.Bytes()), decoder_(Encoding(path, table_)) {
        std::string columns, marks;
        for (const DbfField& field : table_.Fields()) {
            columns += (columns.empty() ? "" : ", ") + connection.Quoted(decoder_.Decode(field.name)) +
                       (IsNumber(field) ? " NUMERIC" : " TEXT");
            marks += marks.empty() ? "?" : ", ?";
        }
        connection.Execute("CREATE TABLE " + connection.Quoted(name) + " (" + columns + ")");
        insert_ = "INSERT INTO " + connection.Quoted(name) + " VALUES (" + marks + ")";
    }

    void Run() {
        connection_.Execute("BEGIN");  // a fourth faster
        Statement insert(connection_, insert_);
        std::size_t count = table_.Fields().size();
        std::vector<std::string> texts(count);
        std::vector<Value> values(count);
        for (std::uint64_t number = 1; number <= table_.RecordCount(); ++number) {
            std::string_view record = table_.Record(static_cast<std::int64_t>(number));
            if (record.starts_with('*')) continue;
            for (std::size_t i = 0; i < count; ++i) values[i] = Take(record, table_.Fields()[i], texts[i]);
            insert.Execute(values);
        }
        connection_.Execute("COMMIT");
    }

private:
    Value Take(std::string_view record, const DbfField& field, std::string& text) {
        std::string_view bytes = DbfTable::Value(record, field);
        if (IsNull(bytes, field.type)) return nullptr;
        text = decoder_.Decode(bytes);
        if (field.type == 'D') text = DateText(text);
        return std::string_view(text);
    }

    Connection& connection_;
    platform::MappedFile file_;
    DbfTable table_;
    platform::Decoder decoder_;
    std::string insert_;
};

}  // namespace

void LoadDbaseTable(Connection& connection, const std::string& folder, std::string_view name) {
    std::string path = util::JoinPath(folder, std::string(name) + ".DBF");
    if (util::SafeFileName(name) != name || !platform::FileExists(path)) return;
    try {
        TableCopy(connection, path, name).Run();
    } catch (const platform::ReadError& error) {
        throw DatabaseError("HY000", error.InFile(platform::NativePath(path)).what());
    }
}

}  // namespace vexlator::database
