// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
// DrawingToCadcorp: hands drawings over to the corporate GIS, and back.
#include "corporate/store/HandoffProgram.h"
#include "platform/Files.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    vexlator::platform::RaiseOpenFileLimit();
    try {
        return vexlator::corporate::RunHandoffProgram(
            "DrawingToCadcorp", vexlator::corporate::SignOfExport::Log, {argv + 1, argv + argc});
    } catch (const vexlator::platform::OutputError&) {
        return 1;
    }
}
