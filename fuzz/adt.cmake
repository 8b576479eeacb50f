vexlator_fuzz(adt LINK vexlator_formats_adt)
