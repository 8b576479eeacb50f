vexlator_fuzz(zip LINK vexlator_workflow)
