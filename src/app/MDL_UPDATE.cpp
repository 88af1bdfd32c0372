#include "app/MDL_UPDATE.h"

#include <filesystem>

#include "draws/Public_var.h"
#include "ui/qt/Desktop.h"
#include "ui/qt/PanelContext.h"
#include "ui/qt/Qs.h"

namespace ssq {

void LaunchUpdater(const Session& session, Desktop& desktop, bool manual) {
    const std::filesystem::path file = session.programFolder / "Update.exe";
    std::error_code unreadable;
    if (!std::filesystem::is_regular_file(file, unreadable)) return;
    // The arguments go out exactly so, blanks included.
    desktop.StartProgram(Qs(file.string()), manual ? QStringLiteral("/SilentCheck2 /NoIcon ")
                                                   : QStringLiteral("/SilentCheck  /NoIcon"));
}

}  // namespace ssq
