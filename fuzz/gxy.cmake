vexlator_fuzz(gxy LINK vexlator_gpx)
