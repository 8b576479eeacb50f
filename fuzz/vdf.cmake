vexlator_fuzz(vdf LINK vexlator_vdfjson vexlator_drawing PkgConfig::XXHASH)
