// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Statement.h"
#include "database/Table.h"
#include "support/TestDatabase.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace vexlator::database {

class StatementTest : public test::OnEachDatabase {};

constexpr std::string_view awkwardText = "O'Brien; \"Ångström\" -- Жёлтый 😀 ?\\";

TEST_P(StatementTest, KeepsEveryKindOfValue) {
    Connection connection(ConnectionString());
    bool sqlite = connection.Kind() == Connection::Product::Sqlite;
    connection.Execute(std::string("CREATE TABLE v (n INTEGER, t TEXT, i BIGINT, d DOUBLE PRECISION, ") +
                       "w TIMESTAMP, b " + (sqlite ? "BLOB" : "BYTEA") + ")");
    std::string longText(300'000, 'x'), longBytes(100'001, '\0');
    longText.replace(299'000, awkwardText.size(), awkwardText);
    longBytes.back() = '\x7f';
    Statement insert(connection, "INSERT INTO v VALUES (?, ?, ?, ?, ?, ?)");
    platform::DateTime when{2024, 2, 29, 23, 59, 7};
    std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    insert.Execute({1, awkwardText, largest, 400000.123456789, when, Blob{std::string_view("a\0b", 3)}});
    insert.Execute({2, longText, -largest, -1e-300, when, Blob{longBytes}});
    insert.Execute({3, nullptr, nullptr, nullptr, nullptr, nullptr});
    insert.Execute({4, "", 0, 0.0, when, Blob{""}});
    insert.Execute({5, "ab", 1, 1.0, when, Blob{"xy"}});

    Statement select(connection, "SELECT t, i, d, w, b FROM v WHERE n<=? ORDER BY n");
    select.Execute({5});
    ASSERT_TRUE(select.Next());
    EXPECT_EQ(select.Text(0), awkwardText);
    EXPECT_EQ(select.Text(1), "9223372036854775807");
    EXPECT_NEAR(select.Number(2), 400000.123456789, 1e-9);
    EXPECT_EQ(select.Text(3), "2024-02-29 23:59:07");
    EXPECT_EQ(select.Text(4), std::string_view("a\0b", 3));
    ASSERT_TRUE(select.Next());
    EXPECT_TRUE(select.Text(0) == longText) << select.Text(0).size();
    EXPECT_EQ(select.Text(1), "-9223372036854775807");
    EXPECT_DOUBLE_EQ(select.Number(2), -1e-300);
    EXPECT_TRUE(select.Text(4) == longBytes) << select.Text(4).size();
    ASSERT_TRUE(select.Next());
    for (std::size_t i = 0; i < select.ColumnCount(); ++i) EXPECT_TRUE(select.IsNull(i)) << i;
    ASSERT_TRUE(select.Next());
    EXPECT_FALSE(select.IsNull(0));
    EXPECT_EQ(select.Text(0), "");
    EXPECT_EQ(select.Text(4).size(), 0U);
    ASSERT_TRUE(select.Next());
    EXPECT_EQ(select.Text(0), "ab");
    EXPECT_EQ(select.Text(4), "xy");
    EXPECT_FALSE(select.Next());
    EXPECT_FALSE(select.Next());

    select.Execute({1});
    EXPECT_TRUE(select.Next());
    EXPECT_FALSE(select.Next());
}

TEST_P(StatementTest, ReadsManyRowsWithLongValuesAmongThem) {
    Connection connection(ConnectionString());
    connection.Execute("CREATE TABLE m (k INTEGER, t TEXT)");
    auto text = [](std::int64_t k) {
        return std::string(k % 71 == 70 ? 1000 : k % 300, static_cast<char>('a' + k % 26));
    };
    {
        Transaction transaction(connection);
        Statement insert(connection, "INSERT INTO m VALUES (?, ?)");
        for (std::int64_t k = 0; k < 1000; ++k) insert.Execute({k, text(k)});
        transaction.Commit();
    }
    Statement select(connection, "SELECT k, t FROM m ORDER BY k");
    select.Execute();
    for (std::int64_t k = 0; k < 1000; ++k) {
        ASSERT_TRUE(select.Next()) << k;
        ASSERT_EQ(select.Number(0), static_cast<double>(k));
        ASSERT_EQ(select.Text(1), text(k)) << k;
    }
    EXPECT_FALSE(select.Next());
}

/// The remaining rows, and the error at their end.
std::vector<std::string> RowsLeft(Statement& statement, std::size_t most = std::string::npos) {
    std::vector<std::string> rows;
    try {
        while (rows.size() < most && statement.Next()) {
            std::string row;
            for (std::size_t i = 0; i < statement.ColumnCount(); ++i)
                row += "|" + (statement.IsNull(i) ? "NULL" : std::string(statement.Text(i)));
            rows.push_back(std::move(row));
        }
    } catch (const DatabaseError& error) {
        rows.push_back(error.State() + " " + error.what() + " in " + error.Query());
    }
    return rows;
}

TEST_P(StatementTest, ReadsTheSameRowsAhead) {
    Connection connection(ConnectionString());
    bool sqlite = connection.Kind() == Connection::Product::Sqlite;
    connection.Execute(std::string("CREATE TABLE a (k INTEGER PRIMARY KEY, t TEXT, d DOUBLE PRECISION, b ") +
                       (sqlite ? "BLOB)" : "BYTEA)"));
    {
        Transaction transaction(connection);
        Statement insert(connection, "INSERT INTO a VALUES (?, ?, ?, ?)");
        for (std::int64_t k = 1; k <= 9000; ++k) {
            std::string text(k % 997 == 0  ? 100'000
                             : k % 83 == 0 ? 3000
                                           : k % 90,
                             static_cast<char>('a' + k % 26));
            insert.Execute({k, k % 5 == 0 ? Value(nullptr) : Value(text),
                            k % 7 == 0 ? Value(nullptr) : Value(static_cast<double>(k) / 8),
                            Blob{std::string_view("\0\x01\xff", k % 4)}});
        }
        transaction.Commit();
    }
    // A server computes all rows before it gives the first.
    std::string overflow = sqlite ? "abs(-9223372036854775807-(k=8500))" : "NULL";
    struct Case {
        std::string where;
        std::size_t rows;  ///< the error is included
    };
    for (const Case& c : {Case{"", sqlite ? 8500U : 9000U}, Case{"WHERE k<8500", 8499}, Case{"WHERE k<2", 1},
                          Case{"WHERE k<1", 0}}) {
        std::string query = "SELECT k, t, d, b, " + overflow + " FROM a " + c.where + " ORDER BY k";
        Statement plain(connection, query);
        Statement ahead(std::make_unique<Connection>(ConnectionString()), query);
        for (int run = 0; run < 2; ++run) {
            plain.Execute();
            ahead.Execute();
            std::vector<std::string> expected = RowsLeft(plain);
            EXPECT_EQ(expected.size(), c.rows) << c.where;
            EXPECT_TRUE(RowsLeft(ahead) == expected) << c.where;
            for (Statement* half : {&plain, &ahead}) {
                half->Execute();
                EXPECT_EQ(RowsLeft(*half, 2).size(), std::min<std::size_t>(2, c.rows)) << "drops the rest";
            }
        }
    }
}

TEST_P(StatementTest, TransactionsHappenWholeOrNotAtAll) {
    Connection connection(ConnectionString());
    connection.Execute("CREATE TABLE t (k INTEGER)");
    {
        Transaction transaction(connection);
        transaction.LockTable("t");
        connection.Execute("INSERT INTO t VALUES (1)");
    }
    EXPECT_EQ(Rows("SELECT count(*) FROM t"), std::vector<std::string>{"0"});
    {
        Transaction transaction(connection);
        connection.Execute("INSERT INTO t VALUES (2)");
        transaction.Commit();
    }
    connection.Execute("INSERT INTO t VALUES (3)");
    EXPECT_EQ(Rows("SELECT k FROM t ORDER BY k"), (std::vector<std::string>{"2", "3"}));
    Statement change(connection, "UPDATE t SET k=k+? WHERE k>=?");
    change.Execute({10, 2});
    EXPECT_EQ(change.RowsAffected(), 2);
    change.Execute({10, 100});
    EXPECT_EQ(change.RowsAffected(), 0);
}

TEST_P(StatementTest, QuotesNamesAndFindsThemInAnyCase) {
    Connection connection(ConnectionString());
    std::string table = R"(Lampen; "süd")", column = "No. Höhe \"m\" ?";
    connection.Execute("CREATE TABLE " + connection.Quoted(table) + " (" + connection.Quoted(column) +
                       " TEXT)");
    connection.Execute("CREATE TABLE Plain (ID INTEGER)");
    auto found = Table::Find(connection, R"(LAMPEN; "SüD")");
    ASSERT_TRUE(found);
    Statement insert(connection, "INSERT INTO " + found->Name() + " (" + found->Column("NO. höhe \"M\" ?") +
                                     ") VALUES (?)");
    insert.Execute({"4,5"});
    EXPECT_EQ(Rows("SELECT * FROM " + connection.Quoted(table)), std::vector<std::string>{"4,5"});
    ASSERT_TRUE(Table::Find(connection, "PLAIN"));
    EXPECT_TRUE(Table::Find(connection, "PLAIN")->HasColumn("Id"));
    EXPECT_THROW(Table::Find(connection, "PLAIN")->Column("Name"), DatabaseError);
    EXPECT_FALSE(Table::Find(connection, "Plai_"));
}

TEST_P(StatementTest, ErrorsCarryTheStatement) {
    Connection connection(ConnectionString());
    connection.Execute("CREATE TABLE u (k INTEGER UNIQUE)");
    Statement insert(connection, "INSERT INTO u VALUES (?)");
    insert.Execute({1});
    EXPECT_THROW(insert.Execute({1, 2}), DatabaseError);
    try {
        insert.Execute({1});
        ADD_FAILURE() << "a second row with the same key";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(error.Query(), "INSERT INTO u VALUES (?)");
        EXPECT_NE(std::string(error.what()).find_first_of("uU"), std::string::npos);
    }
    EXPECT_THROW(connection.Execute("SELECT nonsense FROM nowhere"), DatabaseError);
    insert.Execute({2});
    EXPECT_EQ(Rows("SELECT count(*) FROM u"), std::vector<std::string>{"2"});
}

VEXLATOR_ON_EACH_DATABASE(StatementTest);

}  // namespace vexlator::database
