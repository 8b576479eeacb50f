vexlator_fuzz(geometry LINK vexlator_formats)
