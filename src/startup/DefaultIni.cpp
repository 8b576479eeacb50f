// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/InstallationFiles.h"
#include "util/Text.h"

namespace vexlator::startup {

namespace {

constexpr std::string_view iniText = R"ini(; Settings of this Vexlator installation.
; A flag is on when its value is exactly 1. A key that is empty or missing has the default given above it.
; Lines that begin with ; are comments.

[GENERAL]
; Folder of attribute templates (.ATP), one per feature code. Required.
ATPDirectory=@FOLDER@/ATP
; Folder of symbol drawings (.VDF); DEFAULT.VDF draws codes that have no symbol of their own. Required.
SymbolsDirectory=@FOLDER@/Symbols
; Folder of database definitions (.FMO). Default: none.
FMODirectory=@FOLDER@/FMO
; Root of the job folders, engineer/project/job below it. Default: drawings belong to no job.
WorkFlowDirectory=@FOLDER@/Jobs
; Folder of the workflow database WorkFlow.MDB, where exports are recorded. Default: nothing is recorded.
WorkFlowSystem=@FOLDER@/WorkFlow
; Scratch folder. Default: c:\temp.
TempDirectory=@FOLDER@/Temp
; Flag: open the result of an export when it is done. Default: off.
AutoLaunchExport=0
; Flag: show diagnostic messages (paths, queries, values). Default: off.
VEXLATORDEBUG=0
; Flag: names of CSV, CAD and database exports begin with their project's. Default: off.
PrefixExport=0
; Flag: one database per job in database exports. Default: off.
JobBasedMDB=0
; False origin of CAD exports. Default: none.
FalseOrigin=
; Company name, written into KML exports and checked by the ESRI hand-off. Default: none.
Company=
; Location of the corporate GIS for the ESRI and Cadcorp hand-offs. Default: none.
CorporateGIS=
; Flag: Cadcorp hand-offs go through task files. Default: off.
CommitCentrally=0
; Flag: the Cadcorp export hand-off asks its program for diagnostics. Default: off.
DEBUG=0
; Import rules of one customer: CORVANTEX gives every shapefile the feature code PIPES. Default: none.
CUSTOMERMODE=
; Folder of photographs for the environment survey export. Default: none.
JPGFolder=

[GENERICIN]
; Path of the run log, one line per event; a file, no named pipe. Default: no log.
INOUTLOG=
; Flag: imports offer to make attribute templates for feature codes that have none. Default: off.
GenATP=0

[GENERICOUT]
; Flag: pack the folder of an export into a ZIP archive. Default: off.
CREATEZIP=0
; Flag: values go to the column that has their name; else to the column at their position, whatever the names.
; Where names differ, one line tells it either way. Default: off.
MATCHNAMES=1
; Separator at which attribute values are cut short. Default: values stay whole.
SHORTENFIELDSON=

[HOUSEKEEPING]
; Flag: shapefile exports use the second form of a template's field names, NAME<SECOND>. Default: off.
ReProcessFieldNames=0

[THIRD]
; Flag: .TXT imports are meter readings, not tables. Default: off.
CAW=0
; Flag: exports list the photographs that they copied. Default: off.
SSE=0
; Flag: table layout of tree surveys in DBF exports. Default: off.
Arbolog=0

[OPTION]
; What the selection window's controls were left at, one key per control. Written by the program.

[MOBILESTYLING]
; Path of the mobile styling file. Default: none.
FILE=

[ESRI]
; ESRI version: 0 none, 1 version 10, 2 version 10.2, 5 version 10.5. Default: none.
ARC10=

[GPS]
; Coordinate system of the drawings: EPSG code, WKT or PROJ text, or the path of a file with it; the path of a
; file that holds LatLng means that drawings are in latitude/longitude already. Default: British National Grid
; through a correction grid, OSTN15 (uk_os_OSTN15_NTv2_OSGBtoETRS.tif), OSTN02.INT or OSTN97.INT in Resources.
TRANSFORMATION=
; Flag: copy the coordinate system definition with the output. Default: off.
CopyCoordSys=0

[PHOTO]
; Flag: photographs go to FixedExportFolder instead of the folder of the export. Default: off.
FixedExport=0
; That folder. Default: none.
FixedExportFolder=
; Flag: write full paths of photographs into the features. Default: off.
FullPath=0
; Flag: do not copy photographs. Default: off.
DontCopy=0
; Folder that photographs are taken from. Default: that of the drawing's job.
FIXEDSOURCE=
; Folder written in place of the one that photographs were really copied to. Default: none.
FALSETARGET=
; Anything: CSV exports write photographs as spreadsheet links. Default: off.
ExportAsHyperlinks=
; Flag: photo links of KML exports are for web maps. Default: off.
GoogleMaps=0

[KML]
; Web address below which photographs are published, in the folder that Company names, when GoogleMaps is on.
; Default: addresses relative to the KML.
WebBase=

[CSV]
; Flag: one file per feature code instead of one per drawing. Default: off.
SepFiles=0
; 0: no header rows. Default: header rows.
header=1
; TAB: fields are separated by tabs. Default: by commas.
Separator=
; 0: no coordinate column. Default: a coordinate column.
Coords=1
; Flag: coordinates of points in latitude/longitude. Default: off.
LatLng=0
; Flag: the value NA is written as an empty value, in shapefile exports too. Default: off.
SuppressNA=0
; Flag: coordinates again as columns of their own at the end of the row. Default: off.
MultiXYZ=0
; Decimal places of x and y, 0 to 15. Default: 3.
DP=
; Flag: fields are quoted as RFC 4180 has it; else commas inside values become separators. Default: off.
Quote=0
; Flag: values that begin with = + - or @ and are no numbers get a ' in front, so that spreadsheets show them
; and never run them. For files that people open, not for those that programs read. Default: off.
SafeFormulas=0
; Flag: files are UTF-8 and begin with a byte-order mark; else they are Windows-1252. Default: off.
BOM=0

[CSVIN]
; Name of the east column; without a header its position from 0. Default: none; position 0.
East=
; Name of the north column; without a header its position from 0. Default: none; position 0.
North=
; Name of the key column; without a header its position from 0. Default: none; position 0.
Key=
; Feature code of every file. Default: the file's name.
FixedFeature=
; TAB: fields are separated by tabs. Default: by commas.
Separator=
; 0: the files have no header line. Default: a header line.
header=1

[SHPout]
; Flag: shapefile exports in latitude/longitude. Default: off.
LL=0
; Projection file in the folder Resources. Default: ESRI.PRJ; with LL, WGS 84, which needs no file.
PRJ=

[SHPin]
; Flag: shapefile imports are in latitude/longitude. Default: off.
LL=0
; Flag: shapefile imports are in feet. Default: off.
USFT=0
; Flag: where the .PRJ of a shapefile names another coordinate system than these settings, its coordinates are
; converted from that system to the drawings'. Default: off; the difference is only told.
FOLLOWPRJ=1

[GML]
; 1: GML imports keep every ring and part of a feature; 0: only the one that is read last. Default: 1, but 0
; for files of FME translators with one element a line.
FullRings=
; Most megabytes that a compressed GML file may unpack to. Default: 16384.
MaxMB=

[GRPin]
; Flag: background sources are in feet. Default: off.
ft=0

[DBF]
; Flag: DBF exports write tables of feature codes without features too. Default: off.
ForceEmpty=0
; Flag: DBF exports give the centroid of closed polylines. Default: off.
PolyCentroid=0

[DWG]
; Version of the CAD file. Default: the converter's own.
Version=
; Annotation of CAD exports. Default: none.
-ANNO=
; Prefix of the layer names of CAD exports. Default: none.
-PREFIX=
; Rotation of symbols in CAD exports. Default: none.
ROTATE=
; CAD exports write attributes as block attributes. Default: off.
AsAttribs=
; Those block attributes are visible. Default: off.
AttribsVis=

[MID]
; Coordinate system line of MIF and TAB exports. Default: the British National Grid.
MIDMIFHEADER=
; Flag: rows get a value for every column, and lines or areas of fewer than two vertices become points or no
; objects, because some programs stop reading where that is not so. Default: off.
Strict=0

[MIDIN]
; Flag: MIF imports make polylines and symbols of arcs, rectangles, sets of points and collections too, and let
; the next object end a text; otherwise lines of these are reported, and a text lasts to the next empty line.
; Default: off.
Extended=0

[TAB]
; Flag: TAB imports turn small areas into points. Default: off.
SMALLPOLYSASPOINTS=0

[XLS]
; Template of spreadsheet exports. Default: none.
Template=

[JOB]
; OFF: device jobs are read line by line. Default: in one step. Both give the same drawing at the same speed.
RAPIDREAD=
; Flag: device job imports mark the quality of GPS positions. Default: off.
ImportQA=0
; 0: areas of device jobs are closed only where their ends meet. Default: always.
ForceClose=

[GPX]
; Flag: GPS trails become GPX 1.1 that every reader takes; positions without latitude/longitude are left out.
; Default: off.
Strict=0
; Web address that the GPX files of GPS trails refer to. Default: https://www.veltrom.example/professional-services
WebBase=

[GRP]
; Grid size of background packages. Default: 1000.
GRIDSIZE=1000
; Most entities in a tile of a background package. Default: 100000.
MAXENTITIES=
; Layers of PDF backgrounds, joined by backslashes. Default: those found beside the PDF.
PDFlayers=
; Flag: symbols become points of a background package; else they are taken apart. Default: off.
DONTEXPLODE=0
; Layers whose attributes go into background packages in records of one width: {LAYER,WIDTH,NAME,NAME}{...}.
; Default: every attribute of other layers goes with its name.
AttributeList=
; Flag: also write a DXF file with a background package. Default: off.
CREATEDXF=0
; Flag: closed polylines become areas too, not only those of classified drawings. A file DRAWING.VDF.info
; beside the drawing does the same. Default: off.
GENFULLPOLYS=0
; MasterMap backup folder. Default: c:\MMbackup.
MMBACKUP=
; Flag: keep a MasterMap database up to date from change-only updates. Default: off.
MMMAINTAINCOU=0
; Flag: one colour for points, lines and areas in background styles. Default: off.
SimpleStyling=0
; Background style file (.BSF) of packages that are built from the command line. Default: none.
STYLEFILE=
; Megabytes of memory for a package's tiles; what is beyond goes to a temporary file. Default: 512.
MEMORYMB=512

; Style files of background packages have the next three sections too. LAYERON and SEARCHON hold for packages that are
; built without one.
[FIXEDANNO]
; Height of every annotation; what is annotated only a style file says, so that it is read there. Default: each its own.
HGT=

[LAYERON]
; Attribute that chooses a feature's layer in a background package. Default: none.
FIELD=

[SEARCHON]
; Attribute that a background package can be searched by. Default: none.
FIELD=

[PDF]
; Flag: annotate hot-linked features in map books. Default: off.
AnnoHot=0
; Flag: a background map behind every page. Default: off.
BKGND=0
; Folder of the pages. Default: Temp in the folder of this file.
FOLDER=
; Highest page number to make; 0 or empty: all. Default: all.
MAXSPACE=
; Lowest page number to make. Default: 0.
MINSPACE=
; Flag: layout of drainage surveys. Default: off.
Dunlevys=0
; Feature code of the page frames. Default: none.
SEQFEATURE=
; Size of symbols. Default: as drawn.
SYMSIZE=
; Flag: join the pages into one PDF file. Default: off.
ToPDF=0

[INOUTFEATCHANGE]
; Renames feature codes and their fields in exports: a key per code, and the code followed by _Fields.
; Default: nothing is renamed.

[ZIP]
; Most megabytes that a tablet package or job archive may unpack to. Default: 2048.
MaxMB=

[WORKFLOW]
; ODBC connection of a workflow database that machines share, as in Driver=PostgreSQL Unicode;Server=...
; Default: the database in WorkFlowSystem.
CONNECTION=
)ini";

}  // namespace

std::string DefaultIni(std::string_view nativeFolder) {
    return util::ReplaceAll(iniText, "@FOLDER@", nativeFolder);
}

}  // namespace vexlator::startup
