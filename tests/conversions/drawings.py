# SPDX-FileCopyrightText: The Vexlator authors
# SPDX-License-Identifier: MIT
"""Drawings as lines of text: one entity per line.

    LAYER point X,Y [X,Y ...] | NAME=VALUE | NAME=VALUE

The kinds are point, insert, line (an open polyline), area (a closed one), filled (closed and filled) and text. Two
further lines belong to the drawing itself: "frozen LAYER" and "property NAME=VALUE".
"""
import json

KINDS = {"point": "VDPOINT", "insert": "VDINSERT", "line": "VDPOLYLINE", "area": "VDPOLYLINE",
         "filled": "VDPOLYLINE", "text": "VDTEXT"}


def number(value):
    return f"{value:.15g}"


def coordinates(text):
    return [*map(float, text.split(",")), 0.0][:3]


def feature(line):
    head, *pairs = line.split(" | ")
    layer, kind, *points = head.rsplit(" ", head.count(",") + 1) if "," in head else head.rsplit(" ", 1)
    vdf = {"kind": KINDS[kind], "layer": layer, "xproperties": [pair.split("=", 1) for pair in pairs]}
    if vdf["kind"] == "VDPOLYLINE":
        vdf.update(vertices=[coordinates(point) for point in points], closed=kind != "line", filled=kind == "filled")
    else:
        vdf["position"] = coordinates(points[0])
    return {"type": "Feature", "geometry": None, "properties": {}, "vdf": vdf}


def document(lines):
    """The JSON text of a drawing with these lines."""
    frozen = {line[7:] for line in lines if line.startswith("frozen ")}
    properties = [line[9:].split("=", 1) for line in lines if line.startswith("property ")]
    features = [feature(line) for line in lines if not line.startswith(("frozen ", "property "))]
    layers = dict.fromkeys(["0"] + [one["vdf"]["layer"] for one in features])
    return json.dumps({"type": "FeatureCollection", "features": features,
                       "drawing": {"properties": properties,
                                   "layers": [{"name": name, "frozen": name in frozen} for name in layers]}})


def entities_of(dump):
    """The entities of a dump: the members "vdf" of its features."""
    return [one["vdf"] for one in json.loads(dump)["features"]]


def line_of(vdf):
    if vdf["kind"] == "VDPOLYLINE":
        kind = "filled" if vdf["filled"] else "area" if vdf["closed"] else "line"
    else:
        kind = next(kind for kind, name in KINDS.items() if name == vdf["kind"])
    points = vdf["vertices"] if "vertices" in vdf else [vdf["position"]]
    texts = [",".join(number(value) for value in (point if point[2] else point[:2])) for point in points]
    line = " | ".join([" ".join([vdf["layer"], kind, *texts]), *("=".join(pair[:2]) for pair in vdf["xproperties"])])
    return line.replace("\n", "\\n")


def lines_of(dump):
    return [line_of(vdf) for vdf in entities_of(dump)]
