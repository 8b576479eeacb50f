// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/RecordedRun.h"

#include "config/RecordingInterface.h"
#include "platform/Signals.h"
#include "startup/Settings.h"

#include <exception>
#include <new>

namespace vexlator::startup {

config::ConversionReport RecordedRun(
    const std::function<void(config::Installation&)>& prepare,
    const std::function<void(config::Run&, config::ConversionReport&)>& convert) {
    config::ConversionReport report;
    config::RecordingInterface recorder(report);
    config::Installation installation;
    try {
        LocateSettings(installation);
        prepare(installation);
        ReadSettings(installation);
        config::Run run(installation, recorder);
        run.Options().quiet = true;
        convert(run, report);
    } catch (const platform::Stopped&) {
        throw;
    } catch (const std::bad_alloc&) {
        report.error = "not enough memory";
    } catch (const std::exception& error) {
        report.error = error.what();
    }
    return report;
}

}  // namespace vexlator::startup
