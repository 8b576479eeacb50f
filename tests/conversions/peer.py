# SPDX-FileCopyrightText: The Vexlator authors
# SPDX-License-Identifier: MIT
"""Files as GDAL reads them, and their comparison with drawings, feature by feature."""
import configparser
import glob
import os

from osgeo import gdal, ogr

gdal.UseExceptions()
ogr.UseExceptions()


def opened(path):
    source = ogr.Open(path)
    assert source is not None, "GDAL cannot open " + path
    return source


def fields_of(layer):
    definition = layer.GetLayerDefn()
    return [definition.GetFieldDefn(i) for i in range(definition.GetFieldCount())]


def table_lines(path):
    """The columns of a shapefile, then one line per feature: its geometry and its values."""
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
    """Whether a text in a drawing equals the value that GDAL read; numbers can have several forms."""
    if not feature.IsFieldSetAndNotNull(i):
        return text.strip("*0") == ""
    if field.GetType() in (ogr.OFTInteger, ogr.OFTInteger64, ogr.OFTReal):
        return float(text) == feature.GetField(i)
    value = feature.GetFieldAsString(i).strip()
    if field.GetType() == ogr.OFTDate:
        return value.replace("/", "") == text
    return value.replace(",", ";;") == text


def check_import(path, entities):
    """The drawing has exactly the features that GDAL reads, with equal parts and values."""
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


def marks_of(shape):
    """The attributes that a GML import adds to each part: the number of its surface, if there are several, and holes."""
    surfaces = [shape]
    if shape.GetGeometryName() in ("MULTIPOLYGON", "MULTISURFACE"):
        surfaces = [shape.GetGeometryRef(i) for i in range(shape.GetGeometryCount())]
    if surfaces[0].GetGeometryName() != "POLYGON":
        return [[] for _ in parts_of(shape)]
    number = [[("MPOLY", str(i))] if len(surfaces) > 1 else [] for i in range(1, len(surfaces) + 1)]
    return [number[i] + ([("ISHOLE", "1")] if ring else [])
            for i, surface in enumerate(surfaces) for ring in range(surface.GetGeometryCount())]


def check_gml(path, entities):
    """The layers of the drawing have the features that GDAL reads from the file's layers."""
    source = gdal.OpenEx(path, gdal.OF_VECTOR, open_options=["EXPOSE_FID=NO", "EXPOSE_GML_ID=NO"])
    count = 0
    for layer in (source.GetLayer(i) for i in range(source.GetLayerCount())):
        own = [entity for entity in entities if entity["layer"] == layer.GetName()]
        fields = fields_of(layer)
        for feature in layer:
            shape, name = feature.GetGeometryRef(), f"{layer.GetName()} {feature.GetFID()}"
            parts, marks = parts_of(shape), marks_of(shape)
            found, own, count = own[:len(parts)], own[len(parts):], count + len(parts)
            assert [points_of(entity) for entity in found] == parts, name + ": other points"
            present = [i for i in range(len(fields)) if feature.IsFieldSet(i)]
            for entity, more in zip(found, marks):
                pairs = [tuple(pair[:2]) for pair in entity["xproperties"]]
                if ("TOID", str(feature.GetFID())) in pairs:
                    pairs.remove(("TOID", str(feature.GetFID())))
                assert pairs[len(present):] == more, f"{name}: {pairs[len(present):]} instead of {more}"
                for i, (field, text) in zip(present, pairs):
                    same = float(text) == feature.GetField(i) if fields[i].GetType() != ogr.OFTString else \
                        text == feature.GetField(i)
                    assert field == fields[i].GetName() and same, f"{name}: {field}={text}"
    assert count == len(entities) > 0, f"{len(entities)} entities for {count} parts"


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


def check_world(points, world):
    """The world file equals GDAL's fit of first order at every corner of a large image, to a millionth of a pixel."""
    ini = configparser.ConfigParser()
    ini.read(points)
    pairs = [[tuple(map(float, ini["GEOREF"][f"{n}{kind}"].split(","))) for kind in "PG"]
             for n in range(1, 100) if f"{n}P" in ini["GEOREF"]]
    image = gdal.GetDriverByName("MEM").Create("", 1, 1)
    image.SetGCPs([gdal.GCP(*ground, 0, *pixel) for pixel, ground in pairs], "")
    peer = gdal.Transformer(image, None, ["METHOD=GCP_POLYNOMIAL", "MAX_GCP_ORDER=1"])
    with open(world, encoding="ascii") as file:
        a, d, b, e, c, f = map(float, file.read().split())
    for column, row in ((0, 0), (20000, 0), (0, 20000), (20000, 20000)):
        _, (x, y, _) = peer.TransformPoint(False, column + 0.5, row + 0.5)
        apart = max(abs(a * column + b * row + c - x), abs(d * column + e * row + f - y))
        assert apart < 1e-6 * abs(a * e - b * d) ** 0.5, f"{apart} apart at {column}, {row}"


def check_tiles(folder, path):
    """The tiles are side by side at the positions of their names and world files, and show the image."""
    image = gdal.Open(path)
    names = sorted(glob.glob(os.path.join(folder, "*.jpg")))
    made = gdal.BuildVRT("", names)
    assert (made.RasterXSize, made.RasterYSize) == (image.RasterXSize, image.RasterYSize)
    terms, wanted = made.GetGeoTransform(), image.GetGeoTransform()
    assert max(abs(a - b) for a, b in zip(terms, wanted)) < 1e-6, (terms, wanted)
    places = [gdal.Open(name).GetGeoTransform() for name in names]
    assert places == sorted(places, key=lambda place: (-place[3], place[0])), "names are in another order than rows"
    pairs = list(zip(made.ReadRaster()[::7], image.ReadRaster()[::7]))
    apart = sum(abs(a - b) for a, b in pairs) / len(pairs)
    assert apart < 2, f"{apart} of 255 apart"
