// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "import/gml/CoordinateText.h"
#include "import/gml/GmlElements.h"
#include "import/gml/GmlReader.h"
#include "import/gml/XmlParser.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::importer {

struct GmlXmlRules {
    /// Only elements of the "fme" namespace are properties, those with child elements too; a text that is no
    /// number counts as 0; srsDimension="3" holds for the rest of the feature.
    bool lineLayout = false;
    bool fullRings = true;
};

/// Reads GML in any layout. A feature is a child element of an element whose name ends in "member" or
/// "members" in any namespace; its geometry is what it holds of the gml namespace; all other elements without
/// child elements are its properties. Features of OS MasterMap's own form get their identifier as TOID.
class GmlXmlReader : public GmlReader, private XmlHandler {
public:
    GmlXmlReader(std::unique_ptr<ByteBlocks> blocks, const GmlXmlRules& rules)
        : blocks_(std::move(blocks)), rules_(rules) {}
    void ReadFeatures(const Take& take) override;
    std::size_t Consumed() const override { return blocks_->Consumed(); }

private:
    enum class Scope : std::uint8_t { Outside, Holder, Feature, Property, Geometry, Skipped };
    struct Open {
        Scope scope = Scope::Outside;
        GmlElement element = GmlElement::Other;
        bool reversed = false;  ///< a curve to be walked from its end
        bool beginsPart = false;
        std::size_t dimension = 2;   ///< values of a point
        std::size_t firstPoint = 0;  ///< how many points there were before it
    };

    void StartElement(std::string_view name, XmlAttributes attributes) override;
    void EndElement() override;
    void Text(std::string_view text) override;

    void NotePrefixes(XmlAttributes attributes);
    bool IsGml(std::string_view name) const;
    Scope ScopeOutside(Scope parent, std::string_view name) const;
    void BeginFeature(std::string_view name, XmlAttributes attributes);
    void EndFeature();
    void StartInFeature(std::string_view name, XmlAttributes attributes, Open& open);
    void BeginProperty(std::string_view name, XmlAttributes attributes);
    void LeaveProperty();
    void EndProperty();
    void CountText(std::size_t bytes);
    void StartGeometry(GmlElement element, XmlAttributes attributes, Open& open);
    void ReadGeometryAttributes(XmlAttributes attributes, Open& open);
    void EndGeometry(const Open& open);
    void EndCurve(const Open& open);
    void BeginCoordinates(XmlAttributes attributes, Open& open);
    void EndCoordinates(const Open& open);
    void BeginPart(Open& open);
    void EndPart(const Open& open);

    std::unique_ptr<ByteBlocks> blocks_;
    GmlXmlRules rules_;
    const Take* take_ = nullptr;
    std::vector<Open> open_;
    std::vector<std::string> gmlPrefixes_{"gml"};
    GmlFeature feature_;
    bool osgb_ = false;          ///< the feature is of OS MasterMap's own form
    std::size_t textBytes_ = 0;  ///< of the feature's properties
    bool inProperty_ = false;    ///< the innermost element is the feature's last property
    std::string reference_;      ///< its xlink:href
    CoordinateText coordinates_;
    bool inCoordinates_ = false;
    bool inPart_ = false;
    GmlPart::Kind ring_ = GmlPart::Kind::Path;
    int reversals_ = 0;  ///< reversed curves around the current place
};

}  // namespace vexlator::importer
