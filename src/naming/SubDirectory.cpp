#include "SubDirectory.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "AppState.h"
#include "DataFileCheck.h"
#include "FileNameRules.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "Profile.h"
#include "platform/Clock.h"
#include "platform/DateFormats.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"

namespace sidekin {

namespace {

QString dayOfYear(const QDateTime& today) {
    return Right(QStringLiteral("000") + FormatDate(today, QStringLiteral("y")), 3);
}

// Key presses and focus loss of txtSubDir reach their procedures; nothing is swallowed.
class SubDirectoryEvents : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const QString text = static_cast<QKeyEvent*>(event)->text();
            const int key = static_cast<QKeyEvent*>(event)->key();
            const int ascii = key == Qt::Key_Return || key == Qt::Key_Enter ? 13
                              : text.isEmpty()                              ? 0
                                                                            : text.at(0).unicode();
            if (ascii != 0) txtSubDir_KeyPress(static_cast<std::int16_t>(ascii));
        } else if (event->type() == QEvent::FocusOut) {
            txtSubDir_LostFocus();
        }
        return false;
    }
};

void wire(FrmOrq& form) {
    QObject::connect(form.txtSubDir, &QLineEdit::textChanged, form.txtSubDir, &txtSubDir_Change);
    form.txtSubDir->installEventFilter(new SubDirectoryEvents(form.txtSubDir));
}

}  // namespace

void SetSubDirectory() {
    handled("SetSubDirectory", [] {
        QString mode = GetPvtProfileStr(QStringLiteral("System"), QStringLiteral("DataSubDirMode"),
                                        App.GlblIniFile);
        if (mode == QLatin1String("-1")) mode = QStringLiteral("Manual");
        QString prefix = GetPvtProfileStr(QStringLiteral("System"), QStringLiteral("DataSubDir"),
                                          App.GlblIniFile);
        prefix = prefix == QLatin1String("-1") ? QString() : Trim(prefix);
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

void wireSubDirectoryEvents() { addFrmOrqWiring(&wire); }

}  // namespace sidekin
