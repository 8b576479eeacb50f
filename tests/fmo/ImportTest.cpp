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
    config::Outcome outcome = Import(folder_ / "FMO/Valves.fmo");
    EXPECT_EQ(outcome.status, config::Outcome::Status::Done);
    ASSERT_EQ(imported_.entityCount(), 3U);
    EXPECT_EQ(imported_.entityAt(0).layerName(), "VALVES");
    EXPECT_EQ(imported_.entityAt(0).position(), (Point{405000.5, 105000.25, 0}));
    EXPECT_EQ(imported_.entityAt(0).blockName(), "default");
    EXPECT_EQ(TextOf(imported_.entityAt(0)),
              "VDINSERT id=7 id=7 e=405000.5 n=105000.25 depth=2 owner=O'Brien");

    folder_.Write("ATP/VALVES.ATP",
                  "[26,09]\r\n[01,01]HANDLE    ,C32.00\r\n[01,02]DEPTH<D>  ,N08.02\r\n"
                  "[01,03]OWNER ,C32.00\r\n'STYLE=0,VALVE,255\r\n");
    run_.Options().extent = {400000, 100000, 410000, 110000};
    Import(folder_ / "FMO/VALVES.FMO");
    ASSERT_EQ(imported_.entityCount(), 4U) << "the drawing that was there is added to";
    EXPECT_EQ(TextOf(imported_.entityAt(3)), "VDINSERT id=7 depth=2 owner=O'Brien");
    EXPECT_EQ(imported_.entityAt(3).style().colour, 255U);
    EXPECT_EQ(imported_.layerCount(), 2U);

    folder_.Write("ATP/VALVES.ATP", "[26,09]\r\n[01,01]HANDLE    ,C32.00\r\n");
    Import(folder_ / "FMO/VALVES.FMO");
    EXPECT_EQ(TextOf(imported_.entityAt(4)), "VDINSERT id=7") << "a template of one field";
}

TEST_P(FmoImportTest, WhatEndsTheImportOfAPointTable) {
    MakeValves();
    Sql("DELETE FROM valves");
    folder_.Write("ATP/VALVES.ATP", "[01,01]HANDLE,C32.00\r\n[01,02]DEPTH,N08.02\r\n[01,03]OWNER,C32.00\r\n");
    std::string query = "SELECT E,N,ID,DEPTH,OWNER FROM VALVES";
    EXPECT_EQ(Import(folder_ / "FMO/VALVES.FMO").status, config::Outcome::Status::Done);
    EXPECT_EQ(ui_.messages, Texts{"No Records Returned\n" + query});

    Sql("INSERT INTO valves VALUES ('1', 1, '2', 0, ''), ('2', 1, '5,3', 0, ''), ('3', 1, '2', 0, '')");
    run_.Options().extent = {0.5, -1, 10, 410000.5};
    if (IsServer()) run_.Options().extent = {};
    ui_.messages.clear();
    EXPECT_EQ(Import(folder_ / "FMO/VALVES.FMO").status, config::Outcome::Status::Failed);
    EXPECT_EQ(imported_.entityCount(), 0U) << "the drawing that was there";
    if (!IsServer()) query += " WHERE E>0.5 AND N>-1 AND E<10 AND N<410000.5";
    EXPECT_EQ(ui_.messages, Texts{"No Records Returned\n" + query});

    Define("VALVES", "TABLE=VALVES\nEAST=E\nNORTH=MISSING\nKEY=ID\n");
    Define("NOTABLE", "TABLE=NOTABLE\nEAST=E\nNORTH=N\nKEY=ID\n");
    ui_.messages.clear();
    EXPECT_EQ(Import(folder_ / "FMO/VALVES.FMO", "|NOTABLE.FMO").status, config::Outcome::Status::Failed);
    ASSERT_EQ(ui_.messages.size(), 2U);
    EXPECT_NE(ui_.messages[0].find("MISSING"), std::string::npos) << ui_.messages[0];
    EXPECT_NE(ui_.messages[1].find("there is no table"), std::string::npos) << ui_.messages[1];
}

TEST_P(FmoImportTest, GeometryValuesBecomePolylines) {
    Sql(std::string("CREATE TABLE pipes (\"Id No\" TEXT, shape ") + (IsServer() ? "BYTEA" : "LONGBINARY") +
        ", mat TEXT)");
    InsertLine("1", Line({{1, 2}, {3, 4.5}, {7, 8}}));
    Sql("INSERT INTO pipes VALUES ('2', NULL, 'none')");
    InsertLine("3", Line({{0, 0}, {0, 9}, {9, 9}, {9, 0}}, true));
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
    EXPECT_EQ(imported_.entityAt(1).vertexCount(), 5U);
    EXPECT_EQ(imported_.entityAt(1).vertex(4), imported_.entityAt(1).vertex(0));
    EXPECT_TRUE(imported_.entityAt(1).isClosed());
    EXPECT_EQ(imported_.entityAt(2).vertex(19999), (Point{19999, 0, 0}));
    Sql("DELETE FROM pipes");
    ui_.messages.clear();
    EXPECT_EQ(Import(folder_ / "FMO/PIPES.FMO").status, config::Outcome::Status::Failed);
    EXPECT_EQ(ui_.messages, Texts{});
    EXPECT_EQ(ui_.reports.back(),
              (folder_ / "out/PIPES.VDF") + " is as it was: nothing was read that could replace it");
}

VEXLATOR_ON_EACH_DATABASE(FmoImportTest);

}  // namespace vexlator
