#include "RunLabels.h"

#include <QLabel>
#include <QPushButton>

#include "AppState.h"
#include "FontCharset.h"
#include "FrmOrq.h"
#include "G11n.h"
#include "platform/LegacyText.h"

namespace sidekin {

void showRunText(std::int32_t id) {
    frmORQ().lblCurrentRun->setText(GetResourceString(id) + CStr(App.GlblCurrentRun));
}

void showRunTextAlone(std::int32_t id) { frmORQ().lblCurrentRun->setText(GetResourceString(id)); }

void clearStatusTime() { frmORQ().lblStatusTime->clear(); }

void applyRunLabelCharset() { applyFontCharset(*frmORQ().lblCurrentRun, readFontCharset()); }

void setStartButton(std::int32_t captionId, std::int32_t toolTipId) {
    QPushButton& button = *frmORQ().cmdStartPauseResume;
    button.setText(GetResourceString(captionId));
    button.setToolTip(GetResourceString(toolTipId));
}

}  // namespace sidekin
