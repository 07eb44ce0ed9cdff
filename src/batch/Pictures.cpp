#include "batch/Pictures.h"

#include "batch/Command.h"
#include "core/text/Numbers.h"

#include <algorithm>

#if VASTREL_PICTURES
#include "pictures/ChartFile.h"
#include "pictures/PictureFiles.h"
#endif

namespace vastrel {

namespace {

bool EndsWith(const std::string& path, const std::string& ending) {
    return path.size() > ending.size() &&
           path.compare(path.size() - ending.size(), ending.size(), ending) == 0;
}

} // namespace

void RequirePictureEnding(const std::string& path, const std::vector<std::string>& endings) {
    if (path.empty()) return;
    if (std::none_of(endings.begin(), endings.end(),
                     [&](const auto& ending) { return EndsWith(path, ending); }))
        throw WrongUse(path + ": a picture's name ends in " + CLI::detail::join(endings, " or ") + ".");
#if !VASTREL_PICTURES
    throw WrongUse("This program was built without pictures.");
#endif
}

#if VASTREL_PICTURES

std::string DrawPicture(const std::string& path, const SurfaceSize& size, int enlarged,
                        const std::function<void(PlotSurface&)>& draw) {
    UsePicturesOffscreen();
    return EndsWith(path, ".svg") ? SvgPicture(size, draw) : PngPicture(size, enlarged, draw);
}

std::string DrawChart(const std::string& path, const ChartPicture& chart) {
    UsePicturesOffscreen();
    return ChartFile(path.substr(path.rfind('.') + 1), chart);
}

#else

std::string DrawPicture(const std::string&, const SurfaceSize&, int,
                        const std::function<void(PlotSurface&)>&) {
    return {};
}
std::string DrawChart(const std::string&, const ChartPicture&) {
    return {};
}

#endif

} // namespace vastrel
