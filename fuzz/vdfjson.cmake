vexlator_fuzz(vdfjson LINK vexlator_vdfjson)
