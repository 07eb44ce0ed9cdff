#pragma once

#include "core/layer/SaveLayer.h"
#include "desktop/toolkit/Screen.h"
#include "support/BatchProgram.h"
#include "support/ScriptedPlatform.h"
#include "support/TemporaryFolder.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>

#include <gtest/gtest.h>

namespace vastrel {

/// "Save Layer As..." in the window menu of a screen.
inline QAction* LayerEntryOf(Screen& screen) {
    for (auto* action : qobject_cast<QMdiSubWindow*>(screen.Frame())->systemMenu()->actions())
        if (action->text().remove('&') == "Save Layer As...") return action;
    ADD_FAILURE() << "The window menu has no entry for layers.";
    return nullptr;
}

inline bool OffersLayer(Screen& screen) {
    return LayerEntryOf(screen)->isEnabled();
}

/// Saves the layer in both formats, and holds the files against those of the batch program with these words.
inline void ExpectLayerOfBatch(Screen& screen, ScriptedPlatform& script,
                               const std::vector<std::string>& words) {
    const TemporaryFolder shown, batch;
    ASSERT_TRUE(OffersLayer(screen));
    for (const char* name : {"layer.geojson", "layer.shp"}) {
        script.ExpectFile(FileQuestion::Kind::Save, LayerFilter, shown / name);
        LayerEntryOf(screen)->trigger();
        std::vector<std::string> all{"--quiet"};
        all.insert(all.end(), words.begin(), words.end());
        all.insert(all.end(), {"--layer", batch / name});
        const BatchResult result = RunBatch(all);
        ASSERT_EQ(result.Status, 0) << result;
        for (const std::string& path : PathsOfLayer(batch / name)) {
            if (path.ends_with(".prj")) continue; // the samples have none
            const std::string bytes = ReadFile(path);
            EXPECT_FALSE(bytes.empty()) << path;
            EXPECT_EQ(ReadFile(shown / path.substr(path.rfind('/') + 1)), bytes) << path;
        }
    }
}

} // namespace vastrel
