vexlator_fuzz(gml LINK vexlator_formats_gml)
