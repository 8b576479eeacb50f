// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/drawingxml/DrawingXml.h"

namespace vexlator::formats::drawingxml {

std::string_view Schema() {
    return R"xsd(<?xml version="1.0" encoding="UTF-8"?>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns="urn:vexlator:drawing-xml:1"
           targetNamespace="urn:vexlator:drawing-xml:1" elementFormDefault="qualified">
  <xs:annotation>
    <xs:documentation>
      A whole field drawing. Coordinates are in drawing units: x easting, y northing, z height. Angles are in radians.
      A colour up to 255 is a palette index, a larger one a 24-bit value (red in the lowest byte). Where an element has
      escaped="true", its texts (content, and attributes of type text) hold % and two hexadecimal digits for each byte
      that XML cannot hold, and for % itself; the bytes are then UTF-8 in most cases.
    </xs:documentation>
  </xs:annotation>

  <xs:element name="drawing" type="Drawing"/>

  <xs:complexType name="Drawing">
    <xs:sequence>
      <xs:element name="property" type="NamedText" minOccurs="0" maxOccurs="unbounded"/>
      <xs:element name="layer" type="Layer" minOccurs="0" maxOccurs="unbounded"/>
      <xs:element name="active" type="Active" minOccurs="0"/>
      <xs:element name="block" type="Block" minOccurs="0" maxOccurs="unbounded"/>
      <xs:element name="entity" type="Entity" minOccurs="0" maxOccurs="unbounded"/>
    </xs:sequence>
    <xs:attribute name="nextHandle" type="Handle">
      <xs:annotation><xs:documentation>New entities get this handle or larger ones.</xs:documentation></xs:annotation>
    </xs:attribute>
  </xs:complexType>

  <xs:complexType name="Layer">
    <xs:annotation><xs:documentation>A feature code. Letter case does not count in names.</xs:documentation></xs:annotation>
    <xs:attribute name="name" type="xs:string" use="required"/>
    <xs:attribute name="frozen" type="xs:boolean" default="false"/>
    <xs:attribute name="colour" type="xs:unsignedInt" default="7"/>
    <xs:attribute name="escaped" type="xs:boolean" default="false"/>
  </xs:complexType>

  <xs:complexType name="Active">
    <xs:annotation><xs:documentation>What new entities get.</xs:documentation></xs:annotation>
    <xs:attribute name="layer" type="xs:string" default="0"/>
    <xs:attributeGroup ref="Style"/>
    <xs:attribute name="escaped" type="xs:boolean" default="false"/>
  </xs:complexType>

  <xs:complexType name="Block">
    <xs:annotation>
      <xs:documentation>
        A symbol that entities of the kind VDINSERT refer to by its name: a drawing, or the bytes of a drawing file
        where these cannot be read; neither where only the name is known.
      </xs:documentation>
    </xs:annotation>
    <xs:choice minOccurs="0">
      <xs:element name="drawing" type="Drawing"/>
      <xs:element name="bytes" type="xs:hexBinary"/>
    </xs:choice>
    <xs:attribute name="name" type="xs:string" use="required"/>
    <xs:attribute name="escaped" type="xs:boolean" default="false"/>
  </xs:complexType>

  <xs:complexType name="Entity">
    <xs:sequence>
      <xs:element name="vertices" type="Vertices" minOccurs="0"/>
      <xs:element name="text" type="Text" minOccurs="0">
        <xs:annotation><xs:documentation>The string of a VDTEXT.</xs:documentation></xs:annotation>
      </xs:element>
      <xs:element name="label" type="Text" minOccurs="0"/>
      <xs:element name="hyperlink" type="Text" minOccurs="0"/>
      <xs:element name="value" type="NamedText" minOccurs="0" maxOccurs="unbounded">
        <xs:annotation><xs:documentation>An attribute, in the order of its template.</xs:documentation></xs:annotation>
      </xs:element>
    </xs:sequence>
    <xs:attribute name="kind" type="xs:string" use="required">
      <xs:annotation>
        <xs:documentation>
          VDPOINT, VDINSERT, VDPOLYLINE, VDCIRCLE, VDTEXT, VDARC, VDLINE, or one that is carried only.
        </xs:documentation>
      </xs:annotation>
    </xs:attribute>
    <xs:attribute name="handle" type="Handle"/>
    <xs:attribute name="layer" type="xs:string" default="0"/>
    <xs:attribute name="closed" type="xs:boolean" default="false"/>
    <xs:attribute name="filled" type="xs:boolean" default="false"/>
    <xs:attributeGroup ref="Style"/>
    <xs:attribute name="name" type="xs:string">
      <xs:annotation><xs:documentation>Of the block of a VDINSERT, of the style of a VDTEXT.</xs:documentation></xs:annotation>
    </xs:attribute>
    <xs:attribute name="scaleX" type="xs:double" default="1"/>
    <xs:attribute name="scaleY" type="xs:double" default="1"/>
    <xs:attribute name="rotation" type="xs:double" default="0"/>
    <xs:attribute name="size" type="xs:double" default="0">
      <xs:annotation><xs:documentation>The radius of a VDCIRCLE or VDARC, the height of a VDTEXT.</xs:documentation></xs:annotation>
    </xs:attribute>
    <xs:attribute name="startAngle" type="xs:double" default="0"/>
    <xs:attribute name="endAngle" type="xs:double" default="0"/>
    <xs:attribute name="alignment" type="xs:int" default="0"/>
    <xs:attribute name="escaped" type="xs:boolean" default="false"/>
  </xs:complexType>

  <xs:attributeGroup name="Style">
    <xs:attribute name="colour" type="xs:unsignedInt" default="7"/>
    <xs:attribute name="fillColour" type="xs:unsignedInt" default="7"/>
    <xs:attribute name="outlineColour" type="xs:unsignedInt" default="7"/>
    <xs:attribute name="lineWeight" type="xs:int" default="0"/>
    <xs:attribute name="lineType" type="xs:string" default=""/>
  </xs:attributeGroup>

  <xs:complexType name="Vertices">
    <xs:annotation>
      <xs:documentation>
        x and y of each vertex, or x, y and z, separated by white space: the position of a point, symbol or text, the
        centre of a circle or arc, the vertices of a line. INF, -INF and NaN stand for what is not finite.
      </xs:documentation>
    </xs:annotation>
    <xs:simpleContent>
      <xs:extension base="Numbers">
        <xs:attribute name="dimension" default="2">
          <xs:simpleType>
            <xs:restriction base="xs:int">
              <xs:enumeration value="2"/>
              <xs:enumeration value="3"/>
            </xs:restriction>
          </xs:simpleType>
        </xs:attribute>
      </xs:extension>
    </xs:simpleContent>
  </xs:complexType>

  <xs:simpleType name="Numbers">
    <xs:list itemType="xs:double"/>
  </xs:simpleType>

  <xs:complexType name="Text">
    <xs:simpleContent>
      <xs:extension base="xs:string">
        <xs:attribute name="escaped" type="xs:boolean" default="false"/>
      </xs:extension>
    </xs:simpleContent>
  </xs:complexType>

  <xs:complexType name="NamedText">
    <xs:simpleContent>
      <xs:extension base="Text">
        <xs:attribute name="name" type="xs:string" use="required"/>
        <xs:attribute name="type" type="xs:int" default="1000">
          <xs:annotation><xs:documentation>Of an attribute: 1000 is text.</xs:documentation></xs:annotation>
        </xs:attribute>
      </xs:extension>
    </xs:simpleContent>
  </xs:complexType>

  <xs:simpleType name="Handle">
    <xs:annotation><xs:documentation>Hexadecimal; each entity of a drawing has its own.</xs:documentation></xs:annotation>
    <xs:restriction base="xs:string">
      <xs:pattern value="[0-9A-Fa-f]{1,16}"/>
    </xs:restriction>
  </xs:simpleType>
</xs:schema>
)xsd";
}

}  // namespace vexlator::formats::drawingxml
