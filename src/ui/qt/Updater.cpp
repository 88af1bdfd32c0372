#include "ui/qt/Updater.h"

#include "app/MDL_UPDATE.h"
#include "app/Public_var.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"

namespace ssq {

void LaunchUpdater(const Session& session, Desktop& desktop, bool manual) {
    if (const auto call = UpdaterCallFor(session.programFolder, manual)) {
        desktop.StartProgram(Qs(call->file.string()), Qs(call->arguments));
    }
}

}  // namespace ssq
