vexlator_fuzz(csv LINK vexlator_import)
