#include "DataFileCheck.h"

#include <QFileInfo>
#include <QLineEdit>

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "RunTable.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/Paths.h"

namespace sidekin {

QString DataFileExits() {
    QString result;
    handled("DataFileExits", [&] {
        FrmOrq& form = frmORQ();
        FlexGrid& grid = form.fgrdRunTable->grid();
        const std::int16_t selectedBefore = toInt16(grid.RowSel());
        // Kept as it was: the global grows by one level at each call.
        App.GlblDataDir += form.txtSubDir->text() + QLatin1Char('\\');
        QString report;
        for (std::int16_t row = add16(App.GlblCurrentRun, 1); row <= grid.Rows() - 1;
             row = add16(row, 1)) {
            const QString name = grid.TextArray(grid.Cols() * row + ColDataFile);
            const bool exists =
                QFileInfo::exists(nativePath(App.GlblDataDir + name + QStringLiteral(".d")));
            if (exists)
                report += QStringLiteral("     Run: ") + CStr(row) +
                          QStringLiteral("   Data File Name: ") + name + QLatin1Char('\r');
            ColorRunTableRow(grid, row, exists ? RnTblColorFileExists : RnTblColorNone);
            SelectRunTableRow(grid, row);
        }
        if (selectedBefore >= 2) SelectRunTableRow(grid, selectedBefore);
        result = report;
    });
    return result;
}

}  // namespace sidekin
