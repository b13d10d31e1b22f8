// What a run needs of its surroundings besides the shared block: the screen, the files of the
// current folder, and the clock that stamps the report.
#pragma once

#include "files/file_system.h"
#include "report/clock.h"
#include "surface/surface.h"

namespace brennik {

struct Platform {
    Surface& surface;
    FileSystem& files;
    const Clock& clock;
};

}  // namespace brennik
