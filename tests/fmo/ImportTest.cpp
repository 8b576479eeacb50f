// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "fmo/Office.h"
#include "formats/fmo/GeometryValue.h"

namespace vexlator {

using drawing::Point;
using test::Texts;

class FmoImportTest : public test::FmoOffice {
protected:
    void MakeValves() {
        Sql("CREATE TABLE valves (id TEXT, e DOUBLE PRECISION, n TEXT, depth REAL, owner TEXT)");
        Sql("INSERT INTO valves VALUES ('7', 405000.5, '105000.25', 2.0, 'O''Brien'),"
            " ('8', 400000, '105000', NULL, 'Größe'), ('9', 99999, '105000', 1.5, '')");
        Define("VALVES", "TABLE=VALVES\nEAST=E\nNORTH=N\nKEY=ID\n");
    }
    void InsertLine(const std::string& key, const std::string& value) {
        database::Connection connection(TestConnection());
        database::Statement(connection, "INSERT INTO pipes VALUES (?, ?, 'PVC')")
            .Execute({key, database::Blob{value}});
    }
    std::string Line(std::vector<util::PlanePoint> points, bool close = false) {
        return formats::vArraytoBLOB(points, close);
    }
};

TEST_P(FmoImportTest, RowsBecomeSymbolsWithTheirValues) {
    MakeValves();
    EXPECT_EQ(Import(folder_ / "FMO/Valves.fmo").status, config::Outcome::Status::Done);
    ASSERT_EQ(imported_.entityCount(), 3U);
    EXPECT_EQ(imported_.entityAt(0).position(), (Point{405000.5, 105000.25, 0}));
    EXPECT_EQ(TextOf(imported_.entityAt(0)),
              "VDINSERT id=7 id=7 e=405000.5 n=105000.25 depth=2 owner=O'Brien");

    folder_.Write("ATP/VALVES.ATP",
                  "[01,01]HANDLE,C32.00\r\n[01,02]DEPTH<D>,N08.02\r\n[01,03]OWNER,C32.00\r\n");
    run_.Options().extent = {400000, 100000, 410000, 110000};
    Import(folder_ / "FMO/VALVES.FMO");
    ASSERT_EQ(imported_.entityCount(), 4U) << "the drawing that was there is added to";
    EXPECT_EQ(TextOf(imported_.entityAt(3)), "VDINSERT id=7 depth=2 owner=O'Brien");
}

TEST_P(FmoImportTest, WhatEndsTheImportOfAPointTable) {
    MakeValves();
    Sql("UPDATE valves SET n='5,3' WHERE id='9'");
    Define("NOCOLUMN", "TABLE=VALVES\nEAST=E\nNORTH=MISSING\nKEY=ID\n");
    Define("NOTABLE", "TABLE=NOTABLE\nEAST=E\nNORTH=N\nKEY=ID\n");
    EXPECT_EQ(Import(folder_ / "FMO/VALVES.FMO", "|NOCOLUMN.FMO|NOTABLE.FMO").status,
              config::Outcome::Status::Failed);
    EXPECT_EQ(ui_.reports[0], "VALVES: row 3, key 9: a coordinate is not a number");
    ASSERT_EQ(ui_.messages.size(), 3U);
    const char* const reasons[] = {"No Records Returned\nSELECT E,N,ID,* FROM VALVES", "MISSING",
                                   "there is no table"};
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NE(ui_.messages[i].find(reasons[i]), std::string::npos) << ui_.messages[i];
}

TEST_P(FmoImportTest, GeometryValuesBecomePolylines) {
    Sql(std::string("CREATE TABLE pipes (\"Id No\" TEXT, shape ") + (IsServer() ? "BYTEA" : "LONGBINARY") +
        ", mat TEXT)");
    InsertLine("1", Line({{1, 2}, {3, 4.5}, {7, 8}}));
    Sql("INSERT INTO pipes VALUES ('2', NULL, 'none')");
    InsertLine("3", Line({{0, 0}, {0, 9}}, true));
    InsertLine("4", Line({{0, 0}, {0, 9}, {9, 9}}).substr(0, 20));
    std::vector<util::PlanePoint> points;
    for (int i = 0; i < 20000; ++i) points.push_back({double(i), double(i % 7)});
    InsertLine("5", Line(points));
    Define("PIPES", "TABLE=Pipes\nKEY=ID NO\nENBLOB=Shape\n");
    run_.Options().extent = {100, 100, 101, 101};
    EXPECT_EQ(Import(folder_ / "FMO/PIPES.FMO").status, config::Outcome::Status::Failed);
    ASSERT_EQ(ui_.reports.size(), 1U);
    EXPECT_EQ(ui_.reports[0],
              "PIPES: 1 row with a damaged geometry value left out, the first with key 4: "
              "byte 0: 3 vertices announced, room for 1");
    ASSERT_EQ(imported_.entityCount(), 3U);
    EXPECT_EQ(TextOf(imported_.entityAt(0)), "VDPOLYLINE Id No=1 Id No=1 shape= mat=PVC");
    EXPECT_EQ(imported_.entityAt(0).vertexCount(), 3U);
    EXPECT_FALSE(imported_.entityAt(0).isClosed());
    EXPECT_EQ(imported_.entityAt(0).vertex(1), (Point{3, 4.5, 0}));
    EXPECT_EQ(imported_.entityAt(1).vertexCount(), 3U);
    EXPECT_EQ(imported_.entityAt(1).vertex(2), imported_.entityAt(1).vertex(0));
    EXPECT_TRUE(imported_.entityAt(1).isClosed());
    EXPECT_EQ(imported_.entityAt(2).vertex(19999), (Point{19999, 0, 0}));
    Sql("DELETE FROM pipes");
    ui_.messages.clear();
    EXPECT_EQ(Import(folder_ / "FMO/PIPES.FMO").status, config::Outcome::Status::Failed);
    EXPECT_EQ(ui_.messages, Texts{});
    EXPECT_EQ(ui_.reports.back(),
              (folder_ / "out/PIPES.VDF") + " is unchanged: nothing was read that could replace it");
}

VEXLATOR_ON_EACH_DATABASE(FmoImportTest);

}  // namespace vexlator
