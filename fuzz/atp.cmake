vexlator_fuzz(atp LINK vexlator_drawing)
