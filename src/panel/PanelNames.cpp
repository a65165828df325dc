// Names for assistive software. It would take a label that stands directly before a control, in the same window; the
// panel's labels lie on the ground, and edits and picker over it. So these are told their names.
#include "panel/CounterPanel.h"

#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"

void CCounterPanel::NameControls() {
    datePicker.SetAccessibleName(LoadText(IDS_DATE));
    sensitivityEdit.SetAccessibleName(LoadText(IDS_SENSITIVITY));
    sdPeriodEdit.SetAccessibleName(LoadText(IDS_SD_PERIOD));
    addressEdit.SetAccessibleName(LoadText(IDS_ADDRESS));
    transmittedEdit.SetAccessibleName(LoadText(IDS_TX));
    receivedEdit.SetAccessibleName(LoadText(IDS_RX));
}
