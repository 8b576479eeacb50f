vexlator_fuzz(ini LINK vexlator_config vexlator_platform)
