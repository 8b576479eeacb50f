// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/FmoDefinition.h"
#include "fmo/Office.h"
#include "formats/dbf/DbfWriter.h"
#include "import/fmo/frmFromFMO.h"
#include "platform/Errors.h"

#include <zip.h>

namespace vexlator {

using database::BuildConnectionString;
using database::FmoDefinition;
using test::Texts;

class DefinitionTest : public test::FmoOffice {
protected:
    FmoDefinition Read(const std::string& text) {
        return ReadFmoDefinition(run_, database::ReadFmoFile(folder_.Write("FMO/a.FMO", text)));
    }
};

TEST_P(DefinitionTest, ChecksWhatIsThere) {
    struct Case {
        std::string keys;
        bool hasDatabase, hasTable;
    };
    std::string noDatabase = "No Database Specification in INI File\n" + (folder_ / "FMO/a.FMO");
    for (const Case& c : {
             Case{"TABLE=Pipes\nMDB=C:\\Net.mdb\nKEY=ID\nEAST=E\n", true, false},
             Case{"TABLE=Pipes\nMDB=C:\\Net.mdb\nENBLOB=Geom\n", true, false},
             Case{"TABLE=Pipes\nKEY=ID\nENBLOB=Geom\n", false, true},
         }) {
        ui_.messages.clear();
        Read("[DEF]\n" + c.keys);
        Texts expected;
        if (!c.hasDatabase) expected.push_back(noDatabase);
        if (!c.hasTable) expected.emplace_back("Table Not Fully Specified in INI file");
        EXPECT_EQ(ui_.messages, expected) << c.keys;
    }
    FmoDefinition definition = Read("[def]\nkeytype=Numeric\nPASSWORD=*\n");
    EXPECT_EQ(definition.keyType, database::KeyType::Numeric);
    EXPECT_EQ(definition.password, " ");
    EXPECT_THROW(Read(std::string((1 << 20) + 1, ';')), platform::ReadError);
    EXPECT_EQ(database::QuoteKeyValue("O'B", database::KeyType::Text), "'O''B'");
    EXPECT_EQ(database::QuoteKeyValue("12", database::KeyType::Numeric), "12");
}

TEST_P(DefinitionTest, ConnectionStrings) {
    auto build = [&](const std::string& keys) {
        FmoDefinition definition = Read("[DEF]\n" + keys);
        ui_.messages.clear();
        return BuildConnectionString(run_, definition);
    };
    EXPECT_EQ(build("DRIVER=SQL Server\nSERVER=srv\nMDB=net\nUSER=me\nPASSWORD=*\n"),
              "DRIVER={SQL Server};Server=srv;database=net;uid=me;pwd= ");
    EXPECT_EQ(build("MDB=http://srv\\data\\Net.mdb\n"),
              "Driver={Microsoft Access Driver (*.mdb)};Provider=MS Remote;Data Source=Net.mdb;"
              "Remote Server=http://srv\\data");
    EXPECT_EQ(ui_.messages.size(), 1U);
    EXPECT_EQ(build("MDB=C:\\Data\\Shapes\n"),
              "Driver={Microsoft dBASE Driver (*.dbf)};Dbq=C:\\Data\\Shapes");
    EXPECT_EQ(build("MDB=C:\\Data\\Net.accdb\n"), "");
    std::string access = "Driver={Microsoft Access Driver (*.mdb)};Dbq=";
    EXPECT_EQ(build("MDB=C:\\none\\Net.MDB\n"), access + "C:\\none\\Net.MDB");
    EXPECT_TRUE(ui_.messages[0].starts_with("Database Not Found\n")) << ui_.messages[0];

    std::string beside = folder_.Write("FMO/Net.mdb", "x");
    EXPECT_EQ(build("MDB=C:\\none\\Net.mdb\n"), access + "C:\\none\\Net.mdb") << "answered No";
    ui_.answers = {true};
    EXPECT_EQ(build("MDB=C:\\none\\Net.mdb\n"), access + folder_ / "FMO\\Net.mdb");
    EXPECT_EQ(run_.ReadIni("DEF", "MDB", folder_ / "FMO/a.FMO"), folder_ / "FMO\\Net.mdb");
    ASSERT_EQ(ui_.questions.size(), 2U);
    EXPECT_TRUE(
        ui_.questions[0].ends_with("\nBUT it is in the same folder as FMO\n\nRe-assign MDB Location?"));
}

INSTANTIATE_TEST_SUITE_P(, DefinitionTest, testing::Values(test::DatabaseKind::Sqlite),
                         test::DatabaseKindName);

class TabletTest : public test::FmoOffice {
protected:
    std::string Package(const Texts& names) {
        std::string path = folder_ / "Net.TPK";
        zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const std::string& name : names)
            zip_file_add(archive, name.c_str(), zip_source_buffer(archive, "x", 1, 0), 0);
        zip_close(archive);
        return path;
    }
};

TEST_P(TabletTest, ImportsTheDefinitionsOfItsDatabase) {
    Sql("CREATE TABLE pts (id TEXT, e INTEGER, n INTEGER)");
    Sql("INSERT INTO pts VALUES ('1', 5, 6)");
    for (const char* code : {"WATER", "GAS"}) Define(code, "TABLE=pts\nEAST=e\nNORTH=n\nKEY=id\n");
    folder_.Write("FMO/OTHER.FMO", "[DEF]\nMDB=C:\\other.mdb\nTABLE=x\n");
    folder_.Write("Net/VALVES.SHP", "of an earlier export");
    std::string list = "|x";
    config::Outcome outcome = importer::frmFromFMO(run_).StartTablet(
        Package({"readme.txt", "TEST.MDB", "sub/z.mdb"}), folder_ / "out", list);
    EXPECT_EQ(list, "|GAS.FMO|WATER.FMO");
    EXPECT_EQ(outcome.features, 2U);
    imported_.open(folder_ / "out/Net.VDF");
    EXPECT_EQ(imported_.entityCount(), 2U);
    EXPECT_EQ(platform::ListFiles(folder_ / "Net"), Texts{"VALVES.SHP"});
    EXPECT_EQ(platform::ListFolders(folder_ / "Net"), Texts{});
    std::filesystem::remove(folder_ / "Net/VALVES.SHP");
    importer::frmFromFMO(run_).StartTablet(folder_ / "Net.TPK", folder_ / "out", list);
    EXPECT_FALSE(platform::FolderExists(folder_ / "Net"));
}

INSTANTIATE_TEST_SUITE_P(, TabletTest, testing::Values(test::DatabaseKind::Sqlite), test::DatabaseKindName);

}  // namespace vexlator
