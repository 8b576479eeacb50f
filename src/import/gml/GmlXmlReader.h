// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "import/gml/CoordinateText.h"
#include "import/gml/GmlElements.h"
#include "import/gml/GmlOuterElements.h"
#include "import/gml/GmlReader.h"
#include "import/gml/GmlReference.h"
#include "import/gml/XmlParser.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
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
/// "members" in any namespace, or the owner of a geometry that no such element holds; its geometry is what it
/// holds of the gml namespace, elements of other namespaces with the content of a geometry included; all
/// other elements without child elements are its properties. Features of OS MasterMap's own form get their
/// identifier as TOID.
class GmlXmlReader : public GmlReader, private XmlHandler {
public:
    GmlXmlReader(std::unique_ptr<ByteBlocks> blocks, const GmlXmlRules& rules)
        : blocks_(std::move(blocks)), rules_(rules) {}
    void ReadFeatures(const Take& take) override;
    std::size_t Consumed() const override { return blocks_->Consumed(); }
    const std::string& SrsName() const override { return references_.FirstName(); }

private:
    enum class Scope : std::uint8_t { Outside, Holder, Feature, Property, Geometry, Skipped };
    struct Open {
        Scope scope = Scope::Outside;
        GmlElement element = GmlElement::Other;
        bool reversed = false;  ///< a curve to be walked from its end
        bool beginsPart = false;
        bool isGml = false;
        bool isSubstitute = false;  ///< a geometry of another namespace
        bool isFeature = false;     ///< a geometry that is a feature itself
        GmlReference reference;
        std::size_t firstPoint = 0;  ///< how many points there were before it
    };

    void StartElement(std::string_view name, XmlAttributes attributes) override;
    void EndElement() override;
    void Text(std::string_view text) override;

    void NotePrefixes(XmlAttributes attributes);
    bool IsGml(std::string_view name) const;
    static GmlElement ElementOf(std::string_view name, const Open& open);
    void ReadReference(XmlAttributes attributes, Scope parent, Open& open);
    void StartOutside(std::string_view name, XmlAttributes attributes, Open& open);
    void StartOuterElement(std::string_view name, XmlAttributes attributes, Open& open);
    void EndOuterElement();
    void StartInHolder(std::string_view name, XmlAttributes attributes, Open& open);
    void StartInBoundedBy(GmlElement element, const Open& open);
    std::optional<GmlOwner> ImplyFeature(std::size_t depth, const std::string& geometryName);
    std::string IdentifierOf(XmlAttributes attributes) const;
    void BeginFeature(std::string_view name, const std::string& identifier);
    void EndFeature();
    void ForgetFeature();
    void StartInFeature(std::string_view name, XmlAttributes attributes, Open& open);
    void BeginProperty(std::string_view name, XmlAttributes attributes);
    void LeaveProperty();
    void EndProperty();
    void CountText(std::size_t bytes);
    template <typename Step>
    void TryCoordinates(Step step);
    void Damage(const std::string& reason);
    void CoordinatesText(std::string_view text);
    void BecomeGeometry(GmlElement content, Open& around);
    void StartInGeometry(std::string_view name, XmlAttributes attributes, Open& open);
    void StartGeometry(GmlElement element, XmlAttributes attributes, Open& open);
    void ReadGeometryAttributes(XmlAttributes attributes, Open& open);
    void EndGeometry(const Open& open);
    void EndCurve(const Open& open);
    void BeginCoordinates(XmlAttributes attributes, Open& open);
    CoordinateFormat FormatOf(XmlAttributes attributes, const Open& open) const;
    void EndCoordinates(const Open& open);
    void BeginPart(Open& open);
    void EndPart(const Open& open);

    std::unique_ptr<ByteBlocks> blocks_;
    GmlXmlRules rules_;
    const Take* take_ = nullptr;
    std::vector<Open> open_;
    std::vector<std::string> gmlPrefixes_{"gml"};
    std::vector<GmlOuterElement> outer_;  ///< of the open elements the first ones, which may be features
    GmlReferences references_;
    GmlFeature feature_;
    bool isImplied_ = false;     ///< the feature is in no member
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
