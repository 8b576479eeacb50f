vexlator_fuzz(job LINK vexlator_import_job)
