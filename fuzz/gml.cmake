vexlator_fuzz(gml LINK vexlator_import)
