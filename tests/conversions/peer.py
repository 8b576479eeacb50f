# SPDX-FileCopyrightText: The Vexlator authors
# SPDX-License-Identifier: MIT
"""Shapefiles as GDAL reads them, and their comparison with drawings, feature by feature."""
from osgeo import ogr

ogr.UseExceptions()


def opened(path):
    source = ogr.Open(path)
    assert source is not None, "GDAL cannot open " + path
    return source


def fields_of(layer):
    definition = layer.GetLayerDefn()
    return [definition.GetFieldDefn(i) for i in range(definition.GetFieldCount())]


def table_lines(path):
    """The columns of a shapefile, then a line for each feature: its geometry and its values."""
    source = opened(path)
    layer = source.GetLayer()
    columns = [f"{field.GetName()} {field.GetTypeName()}({field.GetWidth()}.{field.GetPrecision()})"
               for field in fields_of(layer)]
    lines = [" | ".join([ogr.GeometryTypeToName(layer.GetGeomType()), *columns])]
    for feature in layer:
        shape = feature.GetGeometryRef()
        values = [feature.GetFieldAsString(i).replace("\n", "\\n") if feature.IsFieldSetAndNotNull(i) else "-"
                  for i in range(feature.GetFieldCount())]
        lines.append(" | ".join([shape.ExportToWkt() if shape else "no geometry", *values]))
    return lines


def parts_of(shape):
    """The points of every part or ring, in the file's order as far as GDAL keeps it."""
    if shape is None:
        return [[(0.0, 0.0)]]
    if shape.GetGeometryCount():
        return [part for i in range(shape.GetGeometryCount()) for part in parts_of(shape.GetGeometryRef(i))]
    return [[shape.GetPoint_2D(i) for i in range(shape.GetPointCount())]]


def points_of(entity):
    return [tuple(point[:2]) for point in entity.get("vertices") or [entity["position"]]]


def same_value(field, feature, i, text):
    """Whether a text in a drawing is the value that GDAL read; numbers may be written in several ways."""
    if not feature.IsFieldSetAndNotNull(i):
        return text.strip("*0") == ""
    if field.GetType() in (ogr.OFTInteger, ogr.OFTInteger64, ogr.OFTReal):
        return float(text) == feature.GetField(i)
    value = feature.GetFieldAsString(i).strip()
    if field.GetType() == ogr.OFTDate:
        return value.replace("/", "") == text
    return value.replace(",", ";;") == text


def check_import(path, entities):
    """Every feature that GDAL reads is there, part for part and value for value, and nothing else is."""
    source = opened(path)
    layer = source.GetLayer()
    fields = fields_of(layer)
    position = 0
    for feature in layer:
        parts = parts_of(feature.GetGeometryRef())
        own = entities[position:position + len(parts)]
        position += len(parts)
        # GDAL puts the rings of an area in an order of its own.
        assert sorted(map(points_of, own)) == sorted(parts), f"feature {feature.GetFID()}: other points"
        for entity in own:
            pairs = entity["xproperties"]
            assert [pair[0] for pair in pairs] == [field.GetName() for field in fields], "other fields"
            for i, (name, text) in enumerate(pairs):
                assert same_value(fields[i], feature, i, text), \
                    f"feature {feature.GetFID()}: {name} is \"{text}\", GDAL reads {feature.GetField(i)!r}"
    assert position == len(entities), f"{len(entities)} entities for {position} parts"
    assert position > 0, "no features"


def closed(points, is_area):
    far = is_area and max(abs(points[0][0] - points[-1][0]), abs(points[0][1] - points[-1][1])) > 0.001
    return points + points[:1] if far else points


def cut(text, width, encoding):
    return text.encode(encoding)[:width].decode(encoding, "ignore").rstrip()


def check_export(entities, path):
    """GDAL reads every entity from the shapefile: its points, and its values, cut to their columns."""
    source = opened(path)
    layer = source.GetLayer()
    fields = fields_of(layer)
    with open(path[:-4] + ".CPG", encoding="ascii") as declared:
        encoding = "utf-8" if "UTF-8" in declared.read() else "cp1252"
    assert layer.GetFeatureCount() == len(entities), f"{layer.GetFeatureCount()} features, {len(entities)} entities"
    for entity, feature in zip(entities, layer):
        points = closed(points_of(entity), entity.get("closed", False))
        assert parts_of(feature.GetGeometryRef()) == [points], f"feature {feature.GetFID()}: other points"
        for i, (name, text) in enumerate(entity["xproperties"]):
            wanted, found = cut(text, fields[i].GetWidth(), encoding), feature.GetFieldAsString(i)
            assert found == wanted, f"feature {feature.GetFID()}: {name} is \"{found}\" instead of \"{wanted}\""
