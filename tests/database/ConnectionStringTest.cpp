// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/Connection.h"
#include "database/ConnectionString.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace vexlator::database {

TEST(ConnectionString, FindsValuesAndHidesPasswords) {
    struct Case {
        std::string text, driver, dbq, shown;
    };
    for (const Case& c : {
             Case{"Driver={Microsoft Access Driver (*.mdb)};Dbq=C:\\d\\a.mdb",
                  "Microsoft Access Driver (*.mdb)", "C:\\d\\a.mdb",
                  "Driver=Microsoft Access Driver (*.mdb);Dbq=C:\\d\\a.mdb"},
             Case{"DRIVER=x;; dbq ={a;b}}c};pwd=s;Password=t", "x", "a;b}c",
                  "DRIVER=x;dbq={a;b}}c};pwd=***;Password=***"},
             Case{"nothing;Driver=;Dbq={open", "", "open", "Driver=;Dbq=open"},
         }) {
        ConnectionString parsed(c.text);
        EXPECT_EQ(parsed.Get("driver"), c.driver) << c.text;
        EXPECT_EQ(parsed.Get("DBQ"), c.dbq) << c.text;
        EXPECT_EQ(parsed.WithoutPasswords(), c.shown);
    }
    EXPECT_EQ(ConnectionString(AccessConnectionString("/d;e/a.mdb")).Get("Dbq"), "/d;e/a.mdb");
}

TEST(ConnectionString, RefusesWhatCannotBeOpened) {
    test::TempFolder folder;
    std::string text = folder.Write("text.mdb", "not a database"), empty = folder.Write("empty.mdb", "");
    std::string semicolon = folder.Write("a;b.mdb", std::string("SQLite format 3\0", 16));
    std::string damaged = folder.Write("c.mdb", std::string("SQLite format 3\0", 16) + std::string(500, 'x'));
    struct Case {
        std::string connection, reason;
    };
    for (const Case& c : {
             Case{AccessConnectionString(folder / "none.mdb"), "none.mdb: no such file"},
             Case{AccessConnectionString(folder.Path()), "is not a file"},
             Case{AccessConnectionString(text), "text.mdb: neither an SQLite nor an Access database"},
             Case{AccessConnectionString(empty), "empty.mdb: neither"},
             Case{AccessConnectionString(semicolon), "semicolon"},
             Case{AccessConnectionString(damaged), "file is not a database"},
             Case{"Driver={Microsoft Access Driver (*.mdb)};Provider=MS Remote", "only database files"},
             Case{"Driver={Microsoft dBASE Driver (*.dbf)};Dbq=" + (folder / "none"), "no such folder"},
             Case{"Driver={No Such Driver};Server=x", "No Such Driver"},
             Case{"", "IM002"},
         }) {
        try {
            Connection connection(c.connection);
            ADD_FAILURE() << c.connection << " opens";
        } catch (const DatabaseError& error) {
            EXPECT_NE((error.State() + " " + error.what()).find(c.reason), std::string::npos) << error.what();
        }
    }
}

}  // namespace vexlator::database
