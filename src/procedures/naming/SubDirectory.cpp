#include "SubDirectory.h"

#include <QComboBox>
#include <QLineEdit>

#include "AppState.h"
#include "DataFileCheck.h"
#include "FileNameRules.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Profile.h"
#include "ProfileKeys.h"
#include "platform/Clock.h"
#include "platform/DateFormats.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

QString dayOfYear(const QDateTime& today) {
    return Right(QStringLiteral("000") + FormatDate(today, QStringLiteral("y")), 3);
}

}  // namespace

void SetSubDirectory() {
    handled("SetSubDirectory", [] {
        QString mode = GetPvtProfileStr(profile::System, profile::DataSubDirMode, App.GlblIniFile);
        if (mode == profile::Missing) mode = QStringLiteral("Manual");
        QString prefix = GetPvtProfileStr(profile::System, profile::DataSubDir, App.GlblIniFile);
        prefix = prefix == profile::Missing ? QString() : Trim(prefix);
        FrmOrq& form = frmORQ();
        const QString operatorName = Trim(form.cboOperator->currentText());
        const QDateTime today = clock().now();
        auto date = [&](const char* format) { return FormatDate(today, QLatin1String(format)); };

        QString text;
        if (mode == QLatin1String("Manual"))
            text = Left(prefix, 40);
        else if (mode == QLatin1String("FullDate"))
            text = date("yyyymmdd");
        else if (mode == QLatin1String("PrefixDate"))
            text = Left(prefix, 34) + date("yymmdd");
        else if (mode == QLatin1String("PrefixJulian"))
            text = Left(prefix, 33) + date("yyyy") + dayOfYear(today);
        else if (mode == QLatin1String("PrefixMonth"))
            text = Left(prefix, 36) + date("mmdd");
        // 29 for the operator in every operator mode: longer names are refused on choice.
        else if (mode == QLatin1String("OperatorDate"))
            text = Left(operatorName, 29) + date("yymmdd");
        else if (mode == QLatin1String("OperatorJulian"))
            text = Left(operatorName, 29) + date("yyyy") + dayOfYear(today);
        else if (mode == QLatin1String("OperatorMonth"))
            text = Left(operatorName, 29) + date("mmdd");
        else
            return;
        form.txtSubDir->setText(text);
    });
}

void txtSubDir_Change() {
    handled("txtSubDir_Change", [] {
        QLineEdit& field = *frmORQ().txtSubDir;
        QString text = field.text();
        const bool valid = IsValidFileChar(text);
        field.setText(text);
        if (!valid) {
            dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17205),
                                 GetResourceString(17260));
            field.setFocus();
            field.selectAll();
        }
    });
}

void txtSubDir_KeyPress(std::int16_t keyAscii) {
    handled("txtSubDir_KeyPress", [&] {
        std::int16_t copy = keyAscii;  // the clearing does not reach the field
        ConvReturn2Tab(copy);
    });
}

void txtSubDir_LostFocus() {
    handled("txtSubDir_LostFocus", [] {
        if (!DataFileExits().isEmpty())
            dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(17214),
                                 GetResourceString(17263));
    });
}

}  // namespace sidekin
