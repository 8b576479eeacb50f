// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/classification/Classifier.h"
#include "support/Installation.h"

#include <string>
#include <utility>
#include <vector>

namespace vexlator::background {
namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

class ClassifierTest : public test::InstallationTest {
protected:
    drawing::Entity Add(const Attributes& attributes) {
        drawing::Entity entity = drawing_.addPoint({1, 2});
        for (const auto& [name, value] : attributes) entity.xproperties().add(name, value);
        return entity;
    }

    drawing::Drawing drawing_;
};

TEST_F(ClassifierTest, AttributesBecomeHeader) {
    folder.Write("NIMASTERMAP.INI",
                 "[Other]\nx=,land,natural,rail\n[NIFEATURES]\nC1= 9,LAND,Natural,Rail,more\n"
                 "odd=0,a,b,c\nshort=0,Water\nempty=\nWater=\n\"q\"=0,land\n");
    struct Case {
        Attributes attributes;
        FeatureHeader header;
        bool classified;
    };
    const Case cases[] = {
        {{}, {0, 0, 255, 0, 0}, false},
        {{{"NAME", "x"}, {"TOIDS", "7"}}, {0, 0, 255, 0, 0}, false},
        {{{"Theme", "Roads Tracks And Paths"}}, {0, 0, 4, 0, 0}, true},
        {{{"theme", "Administrative Boundaries"}}, {0, 0, 0, 0, 0}, true},
        // Whole texts only; blanks are not removed.
        {{{"THEME", " land"}, {"MAKE", ""}}, {0, 0, 255, 0, 0}, true},
        {{{"make", "UNKNOWN"}}, {0, 0, 255, 0, 3}, true},
        {{{"DescGroup", "Height Control"}}, {0, 0, 255, 3, 0}, true},
        {{{"DESCRIPTIVEGROUP", "PRIVATE ROAD - PUBLICLY ACCESSIBLE"}}, {0, 0, 255, 27, 0}, true},
        {{{"descriptive_groups", "b road"}}, {0, 0, 255, 29, 0}, true},
        {{{"DESCRIPTIVE GROUPS", "b road"}}, {0, 0, 255, 0, 0}, false},
        // The last known attribute wins, even with an unknown text.
        {{{"THEME", "land"}, {"THEMES", "water"}}, {0, 0, 5, 0, 0}, true},
        {{{"THEME", "land"}, {"x", "water"}, {"THEMES", "nonsense"}}, {0, 0, 255, 0, 0}, true},
        {{{"TOID", "1"}, {"FEATURE_ID", "2"}}, {0, 2, 255, 0, 0}, true},
        // The last 16 characters in halves, leading digits of each.
        {{{"TOID", "1000000041355"}}, {10000, 41355, 255, 0, 0}, true},
        {{{"feature_id", "1000000041355"}}, {10000, 41355, 255, 0, 0}, false},
        {{{"TOID", "osgb1000000041355"}}, {0, 41355, 255, 0, 0}, true},
        {{{"TOID", "99123456781234567890"}}, {34567812, 34567890, 255, 0, 0}, true},
        {{{"TOID", "12AB5678"}}, {0, 12, 255, 0, 0}, true},
        {{{"TOID", "1234-678 9000000"}}, {1234, 0, 255, 0, 0}, true},
        {{{"TOID",
           "7x\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"
           "00000005"}},
         {7, 5, 255, 0, 0},
         true},
        {{{"TOID", "-5"}}, {0, 0, 255, 0, 0}, true},
        // Feature codes count if they have an entry.
        {{{"FEAT_CODE", "c1"}}, {0, 0, 2, 15, 1}, true},
        {{{"feat_code", "SHORT"}}, {0, 0, 5, 0, 0}, true},
        {{{"FEAT_CODE", "C2"}, {"TOID_", "3"}}, {0, 0, 255, 0, 0}, false},
        {{{"FEAT_CODE", "empty"}}, {0, 0, 255, 0, 0}, false},
        {{{"THEME", "land"}, {"MAKE", "natural"}, {"FEAT_CODE", "odd"}}, {0, 0, 255, 0, 0}, true},
        {{{"THEME", "land"}, {"MAKE", "natural"}, {"FEAT_CODE", "none"}}, {0, 0, 2, 0, 1}, true},
        {{{"FEAT_CODE", "C1"}, {"THEME", "water"}}, {0, 0, 5, 15, 1}, true},
    };
    Classifier classifier(run);
    for (int round = 0; round < 2; ++round)  // names are known in the second
        for (const Case& c : cases) {
            drawing::Entity entity = Add(c.attributes);
            entity.setLabel("land");
            FeatureHeader header{1, 2, 3, 4, 5};
            SCOPED_TRACE(c.attributes.empty() ? "" : c.attributes[0].first + "=" + c.attributes[0].second);
            EXPECT_EQ(classifier.ClassifyEntity(entity, header), c.classified);
            EXPECT_TRUE(header == c.header) << header.keyHigh << ' ' << header.keyLow << ' ' << +header.classA
                                            << ' ' << +header.classB << ' ' << +header.classC;
        }
}

TEST_F(ClassifierTest, FirstEntityTellsTheDrawing) {
    const std::pair<Attributes, bool> cases[] = {
        {{{"TOID", ""}, {"THEME", ""}, {"MAKE", ""}}, true},
        {{{"make", ""}, {"x", ""}, {"themes", ""}, {"Toid", ""}}, true},
        {{{"TOID", ""}, {"THEME", ""}}, false},
        {{{"TOID", ""}, {"DESCGROUP", ""}, {"MAKE", ""}}, false},
        {{{"FEATURE_ID", ""}, {"THEME", ""}, {"MAKE", ""}}, false},
        {{}, false},
    };
    for (const auto& [attributes, classified] : cases)
        EXPECT_EQ(IsClassifiedDrawing(Add(attributes)), classified);
}

}  // namespace
}  // namespace vexlator::background
