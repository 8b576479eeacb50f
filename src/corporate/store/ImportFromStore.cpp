// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/ImportFromStore.h"

#include "corporate/store/Store.h"

namespace vexlator::corporate {

config::Outcome ImportFromStore(config::Run& run, const std::string& source, const std::string& drawingPath,
                                config::ConversionReport& report, const gis::FeatureFilter& isWanted) {
    const std::string location = SourceOf(source);
    return gis::ImportSources(run, FormatOf(location), {location}, drawingPath, report, isWanted);
}

}  // namespace vexlator::corporate
