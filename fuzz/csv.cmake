vexlator_fuzz(csv LINK vexlator_formats_csv)
