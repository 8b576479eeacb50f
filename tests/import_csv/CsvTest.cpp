// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/csv/frmFromCSV.h"
#include "support/ImportOffice.h"

#include <gtest/gtest.h>

namespace vexlator {
namespace {

using Messages = std::vector<std::string>;
using config::Outcome;

struct Office : test::ImportOffice<importer::frmFromCSV> {
    Office() { Columns("ID", "E", "N"); }
    void Columns(const std::string& key, const std::string& east, const std::string& north,
                 const std::string& more = "") {
        Ini("[CSVIN]\nKey=" + key + "\nEast=" + east + "\nNorth=" + north + "\n" + more);
    }
    std::string Text(std::string_view text) {
        folder.Write("code.csv", text);
        return Import("code.csv");
    }
};

TEST(CsvImport, RecordsBecomeSymbols) {
    struct Case {
        const char *text, *wanted;
    };
    const Case cases[] = {
        {"ID,E,N,TYPE,\n17,1.5,2.5,VALVE,x\n", "CODE VDINSERT 1.5,2.5 | ID=17 | TYPE=VALVE\n"},
        {"TYPE,N,E,ID, DEPTH <m>\n\"Smith, J\",2,1,A1,\"a\"\"b\n",
         "CODE VDINSERT 1,2 | ID=A1 | TYPE=Smith; J | DEPTH=a\"b\n"},
        {"ID,E,N,A\r\n,1,2,x\r\n\r\n   \r\nk,3,4\r\n  ,5,6,z",
         "CODE VDINSERT 1,2 | ID=gvw1 | A=x\n"
         "CODE VDINSERT 3,4 | ID=k | A=\n"
         "CODE VDINSERT 5,6 | ID=gvw3 | A=z\n"},
        {"E,N,ID,ID,A\n7m,x,first,second,5\" pipe\n",
         "CODE VDINSERT 7,0 | ID=second | ID=first | A=5\" pipe\n"},
        {"\"ID\",\"E\",\"N\",\"A, B\",C\n1,2,3,4,5\n", "CODE VDINSERT 2,3 | ID=1 | A; B=4 | C=5\n"},
        {"ID,E,N,5\",6\"\n1,2,3,4,5\n", "CODE VDINSERT 2,3 | ID=1 | 5\"=4 | 6\"=5\n"},
        {"\xEF\xBB\xBFID,E,N,caf\xC3\xA9\n1,2,3,na\xC3\xAFve\n",
         "CODE VDINSERT 2,3 | ID=1 | caf\xC3\xA9=na\xC3\xAFve\n"},
        {"ID,E,N,caf\xE9\r1,2,3,\x80\r", "CODE VDINSERT 2,3 | ID=1 | caf\xC3\xA9=\xE2\x82\xAC\n"},
        {"ID,E,N,A\n1,2,3,\"two\n\"\"lines\"\n4,5,6,\"open\n7,8,9,x\n",
         "CODE VDINSERT 2,3 | ID=1 | A=two\nlines\nCODE VDINSERT 5,6 | ID=4 | A=\"open\n"
         "CODE VDINSERT 8,9 | ID=7 | A=x\n"},
        {"ID,E,N\n", ""},
    };
    for (const Case& c : cases) {
        Office run;
        EXPECT_EQ(run.Text(c.text), c.wanted) << c.text;
        EXPECT_EQ(run.ui.messages, Messages{});
        EXPECT_EQ(run.outcome.status, Outcome::Status::Done);
    }
}

TEST(CsvImport, ColumnsMayBeNumbered) {
    Office run;
    run.Columns("0", "1", "5", "header=0\n");
    EXPECT_EQ(run.Text("P7,412000.5,108000.25,MH\n"), "CODE VDINSERT 412000.5,0\n");
}

TEST(CsvImport, Utf16IsKnownByItsMark) {
    for (std::string_view mark : {"\xFF\xFE", "\xFE\xFF"}) {
        Office run;
        std::string text(mark);
        for (char c : std::string_view("ID,E,N,A\n1,2,3,\xE9\n"))
            text += mark[0] == '\xFF' ? std::string{c, '\0'} : std::string{'\0', c};
        EXPECT_EQ(run.Text(text), "CODE VDINSERT 2,3 | ID=1 | A=\xC3\xA9\n");
        EXPECT_THROW(run.Text(text + "x"), platform::ReadError);
    }
}

TEST(CsvImport, AFixedFeatureTakesEveryFile) {
    Office run;
    run.Columns("ID", "E", "N", "FixedFeature=water\n");
    run.folder.Write("A.CSV", "ID,E,N,X\n1,2,3,x\n");
    run.folder.Write("B.TXT", "E,N,ID,Y\n4,5,6,y\n");
    EXPECT_EQ(run.Import("A.CSV|B.TXT"),
              "WATER VDINSERT 2,3 | ID=1 | X=x\nWATER VDINSERT 4,5 | ID=6 | Y=y\n");
    EXPECT_EQ(run.outcome.layers, 1U);
    EXPECT_EQ(run.outcome.features, 2U);
}

}  // namespace
}  // namespace vexlator
