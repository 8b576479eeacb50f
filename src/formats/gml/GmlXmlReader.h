// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlGeometryReader.h"
#include "formats/gml/GmlNamespaces.h"
#include "formats/gml/GmlOpenElement.h"
#include "formats/gml/GmlOuterElements.h"
#include "formats/gml/GmlProperties.h"
#include "formats/gml/GmlReader.h"
#include "formats/gml/GmlReference.h"
#include "formats/gml/GmlXmlRules.h"
#include "formats/xml/XmlParser.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::formats {

/// Reads GML in any layout. A feature is a child of an element whose name ends in "member" or "members", in
/// any namespace, or the owner of a geometry without such a member. Its geometry consists of its gml elements
/// and of elements of other namespaces with the content of a geometry. All other elements without child
/// elements are its properties. Features in the form of OS MasterMap get their identifier as TOID.
class GmlXmlReader : public GmlReader, private XmlHandler {
public:
    GmlXmlReader(std::unique_ptr<ByteBlocks> blocks, const GmlXmlRules& rules)
        : blocks_(std::move(blocks)),
          rules_(rules),
          references_(rules.axisCount),
          properties_(feature_, rules.lineLayout),
          geometry_(feature_, rules_, line) {}
    void ReadFeatures(const Take& take) override;
    std::size_t Consumed() const override { return blocks_->Consumed(); }
    const std::string& SrsName() const override { return references_.FirstName(); }

private:
    void StartElement(std::string_view name, XmlAttributes attributes) override;
    void EndElement() override;
    void Text(std::string_view text) override;

    static GmlElement ElementOf(std::string_view name, const GmlOpenElement& open);
    void ReadReference(XmlAttributes attributes, GmlScope parent, GmlOpenElement& open);
    void StartOutside(std::string_view name, XmlAttributes attributes, GmlOpenElement& open);
    void StartOuterElement(std::string_view name, XmlAttributes attributes, GmlOpenElement& open);
    void EndOuterElement();
    void StartInHolder(std::string_view name, XmlAttributes attributes, GmlOpenElement& open);
    void StartInBoundedBy(GmlElement element, const GmlOpenElement& open);
    std::optional<GmlOwner> ImplyFeature(std::size_t depth, const std::string& geometryName);
    std::string IdentifierOf(XmlAttributes attributes) const;
    void BeginFeature(std::string_view name, const std::string& identifier);
    void EndFeature();
    void ForgetFeature();
    void StartInFeature(std::string_view name, XmlAttributes attributes, GmlOpenElement& open);
    void StartInGeometry(std::string_view name, XmlAttributes attributes, GmlOpenElement& open);
    void MakeRoom(std::size_t bytes);

    std::unique_ptr<ByteBlocks> blocks_;
    GmlXmlRules rules_;
    const Take* take_ = nullptr;
    std::vector<GmlOpenElement> open_;
    std::vector<GmlOuterElement> outer_;  ///< the first open elements, which may be features
    GmlNamespaces namespaces_;
    GmlReferences references_;
    GmlFeature feature_;
    GmlProperties properties_;
    GmlGeometryReader geometry_;
    bool isImplied_ = false;  ///< the feature is in no member
    bool osgb_ = false;       ///< the feature is of OS MasterMap's own form
};

}  // namespace vexlator::formats
