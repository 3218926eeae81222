#include "FileNameRules.h"

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "LinkTextBox.h"
#include "RunTableColumns.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Keyboard.h"
#include "platform/LegacyText.h"

namespace sidekin {

bool IsValidFileName(QString& name) {
    bool result = true;
    handled("IsValidFileName", [&] {
        name = Trim(name);
        if (name.isEmpty() || name.size() > MaxFileNameChars || name.contains(u' ')) {
            result = false;
            return;
        }
        LinkTextBox& link = *frmORQ().ddeDummy;
        DDEexecute(link, commands::NameCheckOpen(App.GlblOrqDir, name));
        DDERequest(link, commands::NameCheckVariable);
        if (link.text() == QLatin1String("1")) {
            result = false;
            return;
        }
        DDEexecute(link, commands::NameCheckClose);
        DDEexecute(link, commands::NameCheckDelete(App.GlblOrqDir, name));
    });
    return result;
}

bool FileNameUniqueToTable(const QString& name, const QString& mode) {
    bool result = true;
    handled("FileNameUniqueToTable", [&] {
        const FlexGrid& grid = frmORQ().fgrdRunTable->grid();
        const bool skipSelected = mode == QLatin1String("IgSelRow");
        for (std::int16_t row = 1; row <= grid.Rows() - 1; row = add16(row, 1)) {
            if (skipSelected && row == grid.RowSel()) continue;
            if (grid.TextArray(grid.Cols() * row + ColDataFile) == name) {
                result = false;
                return;
            }
        }
    });
    return result;
}

void ConvReturn2Tab(std::int16_t& keyCode) {
    handled("ConvReturn2Tab", [&] {
        if (keyCode == 13) {
            sendTabKey();
            keyCode = 0;
        }
    });
}

}  // namespace sidekin
