#include "EntryValidation.h"

#include <QComboBox>
#include <QLineEdit>

#include "EntryForms.h"
#include "FileNameRules.h"
#include "G11n.h"
#include "platform/Conversions.h"
#include "platform/ErrorHandler.h"
#include "platform/LegacyText.h"
#include "platform/ListControls.h"

namespace sidekin {

namespace {

constexpr double LowestAmount = 0.0;
constexpr double AmountBound = 3.402823E+38;

void tell(int messageId, int titleId) {
    dialogs().messageBox(BoxStyle::ExclamationOk, GetResourceString(messageId),
                         GetResourceString(titleId));
}

void focusAndSelect(QLineEdit& field) {
    SetFocus(field);
    selectFrom0Length100(field);
}

bool amountIsGood(const QLineEdit& field) {
    const QString trimmed = Trim(field.text());
    if (trimmed.isEmpty()) return true;
    if (!IsNumeric(trimmed)) return false;
    const double value = CDbl(field.text());
    return value >= LowestAmount && value < AmountBound;
}

}  // namespace

bool ValidRunTableEntries(FrmOrq&, EntryForm& form) {
    bool result = false;
    handled("ValidRunTavleEntries", [&] {
        if (Trim(form.cboSample->currentText()).isEmpty()) return tell(17208, 17264);
        if (Trim(form.cboMethod->currentText()).isEmpty()) return tell(17209, 17264);
        if (Trim(form.txtSampleID->text()).isEmpty()) {
            tell(17210, 17264);
            return SetFocus(*form.txtSampleID);
        }
        QLineEdit& dataFile = *form.txtDataFile;
        if (Trim(dataFile.text()).isEmpty()) return tell(17211, 17264);
        QString name = dataFile.text();  // the check trims its own copy
        if (!IsValidFileName(name)) {
            tell(17212, 17260);
            if (dataFile.isEnabled()) focusAndSelect(dataFile);
            return;
        }
        const QString mode = form.Name() == QLatin1String("frmRnTblAdd") ? QStringLiteral("None")
                             : form.Name() == QLatin1String("frmRnTblEdit")
                                 ? QStringLiteral("IgSelRow")
                                 : QString();
        if (!mode.isNull() && !FileNameUniqueToTable(dataFile.text(), mode)) {
            tell(17213, 17263);
            if (dataFile.isEnabled()) focusAndSelect(dataFile);
            return;
        }
        if (!amountIsGood(*form.txtSampleAmt)) {
            tell(17229, 17260);
            return focusAndSelect(*form.txtSampleAmt);
        }
        if (!amountIsGood(*form.txtISTDAmt)) {
            tell(17230, 17260);
            return focusAndSelect(*form.txtISTDAmt);
        }
        result = true;
    });
    return result;
}

}  // namespace sidekin
