#include "core/platform/ErrorBoundary.h"

#include "core/platform/Platform.h"
#include "core/platform/RunTimeError.h"

#include <cstdlib>
#include <exception>
#include <new>

namespace vastrel {

void InBoundary(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RunTimeError& error) {
        platform().ReportRunTimeError(error);
        if (error.EndsProcess()) platform().EndProcess(EXIT_FAILURE);
    } catch (const std::bad_alloc&) {
        platform().ReportRunTimeError(RunTimeError(OutOfMemory, "", CustomaryText(OutOfMemory)));
    } catch (const std::exception& error) {
        platform().ReportRunTimeError(RunTimeError(InvalidProcedureCall, "", error.what()));
    }
}

} // namespace vastrel
