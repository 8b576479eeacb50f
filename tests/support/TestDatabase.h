// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/ConnectionString.h"
#include "database/Statement.h"
#include "support/TempFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::test {

enum class DatabaseKind { Sqlite, PostgreSql };

/// Runs a test on an empty SQLite file and on an empty PostgreSQL database.
class OnEachDatabase : public testing::TestWithParam<DatabaseKind> {
protected:
    void SetUp() override {
        if (GetParam() == DatabaseKind::Sqlite) return;
        const char* server = std::getenv("VEXLATOR_TEST_POSTGRES");
        if (server == nullptr)
            GTEST_SKIP() << "no server; scripts/postgres-for-tests runs a program with one";
        connectionString_ = server;
        database::Connection(connectionString_).Execute("DROP SCHEMA public CASCADE; CREATE SCHEMA public");
    }
    std::string ConnectionString() const {
        return connectionString_.empty() ? database::SqliteConnectionString(folder_ / "test.sqlite")
                                         : connectionString_;
    }
    /// Every row of a query, with "|" between its values as text.
    std::vector<std::string> Rows(const std::string& query) const {
        database::Connection connection(ConnectionString());
        database::Statement statement(connection, query);
        statement.Execute();
        std::vector<std::string> rows;
        while (statement.Next()) {
            rows.emplace_back(statement.Text(0));
            for (std::size_t i = 1; i < statement.ColumnCount(); ++i)
                rows.back() += "|" + std::string(statement.Text(i));
        }
        return rows;
    }

    TempFolder folder_;

private:
    std::string connectionString_;
};

inline std::string DatabaseKindName(const testing::TestParamInfo<DatabaseKind>& info) {
    return info.param == DatabaseKind::Sqlite ? "Sqlite" : "PostgreSql";
}

}  // namespace vexlator::test

/// After the tests of a class made from OnEachDatabase.
#define VEXLATOR_ON_EACH_DATABASE(suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(                                                                            \
        , suite,                                                                                         \
        testing::Values(vexlator::test::DatabaseKind::Sqlite, vexlator::test::DatabaseKind::PostgreSql), \
        vexlator::test::DatabaseKindName)
