#include "Main.h"

#include <cstdint>

#include "AppState.h"
#include "CommandLine.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "MainWindowEvents.h"
#include "ShowHideOrq.h"
#include "StartupFetch.h"
#include "platform/ErrorHandler.h"
#include "platform/Screen.h"
#include "platform/WindowSystem.h"

namespace sidekin {

void Main(const QString& commandLine) {
    handled("Main", [&] {
        NLSInitialization();
        ParseCommandLine(commandLine);
        installEventWiring();
        OpenDDELinks();

        // Inside the host's "ViewMGR" child the window sits at the top; in the
        // host's top window it leaves room for the host's own bars.
        const std::int16_t offset = App.GlblViewMgrWnd != 0 ? 0 : 1200;
        const float twipsPerPixel = TwipsPerPixelY();
        frmORQ().setTopTwips(twipsPerPixel / 15.0f * offset);
        frmORQ().setLeftTwips(0);

        if (App.GlblViewMgrWnd == 0) App.GlblViewMgrWnd = App.GlblHostWnd;
        if (App.GlblViewMgrWnd == 0) {
            App.GlblPrevParentWnd = 0;
        } else {
            App.GlblPrevParentWnd =
                windowSystem().setParent(windowHandleOf(frmORQ()), App.GlblViewMgrWnd);
        }

        iNITddesHOWorq();
        ShowHideOrq();
    });
}

}  // namespace sidekin
