#include "FileNameRules.h"

#include "AppState.h"
#include "FlexGridView.h"
#include "FrmOrq.h"
#include "HostCommands.h"
#include "HostConversation.h"
#include "LinkTextBox.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/Keyboard.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

bool isPermitted(QChar c) {
    const char16_t u = c.unicode();
    if ((u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9'))
        return true;
    return u == u'-' || QStringView(u"_^$~!#&{}@`'()").contains(c);
}

}  // namespace

bool IsValidFileChar(QString& name) {
    bool result = false;
    handled("IsValidFileChar", [&] {
        if (name.size() > MaxFileNameChars) return;
        name = LTrim(name);
        for (qsizetype i = 0; i < name.size(); ++i) {
            if (!isPermitted(name[i])) {
                name = name.left(i);
                return;
            }
        }
        result = true;
    });
    return result;
}

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
            if (grid.TextArray(grid.Cols() * row + 6) == name) {
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

QString ReplaceString(const QString& source, const QString& find, const QString& replacement) {
    QString result;
    handled("ReplaceString", [&] {
        // A replacement holding the find text (or an empty find text) never ends,
        // as in the original; callers replace tokens only.
        result = source;
        for (int hit = InStr(result, find); hit > 0; hit = InStr(result, find))
            result = Left(result, hit - 1) + replacement + Mid(result, hit + find.size());
    });
    return result;
}

}  // namespace sidekin
