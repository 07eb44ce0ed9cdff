// The painters' own reading of a .shp, on a surface that checks what is drawn. An input is a byte for the
// zoom and the .shp.
#include "CheckingSurface.h"
#include "FuzzTarget.h"
#include "InputFolder.h"
#include "InputParts.h"
#include "core/display/PolygonPainter.h"
#include "core/spatial/ShapeDataset.h"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    InputParts parts(data, size);
    const double zoom = 1 + 0.25 * parts.TakeChoice(16);
    const std::string path = WriteInput("input.shp", parts.Rest());
    CheckingSurface surface(PolygonMapSurface());
    const auto draw = [&](const std::function<void()>& painter) {
        RunOnInput([&] {
            ws.ShapeFilePath = path;
            ws.MapZoom = zoom;
            ReadShapeHeader();
            painter();
        });
    };
    draw([&] { DrawPlainMap(surface); });
    draw([&] { DrawHighlight(surface, 1); });
    draw([&] {
        constexpr std::ptrdiff_t regions = 8;
        ws.bCusumRun = true;
        ws.CusumValue.ReDim(regions, 1);
        DrawCusumMap(surface, 1);
    });
    return 0;
}
