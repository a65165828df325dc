#include "panel/CounterPanel.h"

#include <utility>

#include "framework/ResourceModule.h"
#include "link/ReplyMessages.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"

static_assert(IDC_ADDRESS_BUTTON_LAST - IDC_ADDRESS_BUTTON_FIRST + 1 == counterCount, "a button for each counter");

CCounterPanel::CCounterPanel() : CDialog(IDD_PANEL), CSettingsForm(static_cast<CWnd&>(*this)) {
    MakeControlsHidden();
}

const CMessageMap& CCounterPanel::ClassMap() {
    static constexpr std::array entries{
        On<WM_PAINT, &CCounterPanel::OnPaint>(),
        On<WM_SIZE, &CCounterPanel::OnSize>(),
        On<WM_TIMER, &CCounterPanel::OnTimer>(),
        OnMessage<WM_POLL_REPLY, &CCounterPanel::OnPollReply>(),
        OnMessage<WM_SETTINGS_REPLY, &CCounterPanel::OnSettingsReply>(),
        OnMessage<WM_CLEAR_REPLY, &CCounterPanel::OnClearReply>(),
        OnMessage<WM_WRITE_REPLY, &CCounterPanel::OnWriteReply>(),
        OnMessage<WM_ADDRESS_REPLY, &CCounterPanel::OnAddressReply>(),
        OnMessage<WM_CLOCK_REPLY, &CCounterPanel::OnClockReply>(),
        OnMessage<WM_SHOW_COUNTER, &CCounterPanel::OnShowCounter>(),
        OnControl<EN_CHANGE, IDC_TRANSMITTED_EDIT, &CCounterPanel::OnTrafficChange>(),
        OnControl<EN_CHANGE, IDC_RECEIVED_EDIT, &CCounterPanel::OnTrafficChange>(),
        OnCommandId<IDC_START, &CCounterPanel::OnStartStop>(),
        OnCommandId<IDC_UPDATE, &CCounterPanel::OnUpdate>(),
        OnCommandId<IDC_CLEAR, &CCounterPanel::OnClear>(),
        OnCommandId<IDC_ALL, &CCounterPanel::OnAll>(),
        OnCommandIds<IDC_LANGUAGE_ENGLISH, IDC_LANGUAGE_CHINESE, &CCounterPanel::OnLanguageChoice>(),
        OnCommandIds<IDC_DIRECTION_IN, IDC_DIRECTION_OUT, &CCounterPanel::OnDirectionChoice>(),
        OnCommandIds<IDC_SD_DETECT_YES, IDC_SD_DETECT_NO, &CCounterPanel::OnSdDetectChoice>(),
        OnControl<EN_CHANGE, IDC_SENSITIVITY_EDIT, &CCounterPanel::OnSensitivityChange>(),
        OnControl<EN_CHANGE, IDC_SD_PERIOD_EDIT, &CCounterPanel::OnPeriodChange>(),
        OnControl<EN_CHANGE, IDC_ADDRESS_EDIT, &CCounterPanel::OnAddressChange>(),
        OnCommandIds<IDC_ADDRESS_BUTTON_FIRST, IDC_ADDRESS_BUTTON_LAST, &CCounterPanel::OnAddressButton>(),
        OnCommandId<ID_PORT_MENU, &CCounterPanel::OnPortMenu>(),
        OnCommandId<ID_HELP_MENU, &CCounterPanel::OnHelpMenu>(),
        OnCommandId<ID_LANGUAGE_MENU, &CCounterPanel::OnLanguageMenu>(),
        OnCommandIds<ID_PORT_FIRST, ID_PORT_LAST, &CCounterPanel::OnPortCommand>(),
        OnCommandId<IDC_PORT, &CCounterPanel::OnOpenCom>(),
        OnCommandId<IDC_COM_SETTING, &CCounterPanel::OnComSetting>(),
        OnCommandId<ID_OPEN_LOG, &CCounterPanel::OnOpenLog>(),
        OnCommandId<ID_ABOUT, &CCounterPanel::OnAbout>(),
        OnCommandId<ID_LANGUAGE_ENGLISH, &CCounterPanel::OnLanguageEnglish>(),
        OnCommandId<ID_LANGUAGE_CHINESE, &CCounterPanel::OnLanguageChinese>()};
    static const CMessageMap map{&CDialog::ClassMap(), entries};
    return map;
}

void CCounterPanel::DoDataExchange(CDataExchange& exchange) {
    const std::pair<int, CWnd*> bound[] = {{IDC_PANEL_STATIC, &panelStatic},
                                           {IDC_DATE_LABEL, &dateLabel},
                                           {IDC_LANGUAGE_LABEL, &languageLabel},
                                           {IDC_SENSITIVITY_LABEL, &sensitivityLabel},
                                           {IDC_DIRECTION_LABEL, &directionLabel},
                                           {IDC_SD_DETECT_LABEL, &sdDetectLabel},
                                           {IDC_SD_PERIOD_LABEL, &sdPeriodLabel},
                                           {IDC_ADDRESS_LABEL, &addressLabel},
                                           {IDC_TOTALS_LABEL, &totalsLabel},
                                           {IDC_UPPER_BORDER, &upperBorder},
                                           {IDC_LOWER_BORDER, &lowerBorder},
                                           {IDC_RIGHT_BORDER, &rightBorder},
                                           {IDC_IN_LABEL, &inLabel},
                                           {IDC_OUT_LABEL, &outLabel},
                                           {IDC_TOP_BAR, &topBar},
                                           {IDC_LANGUAGE_CHINESE, &chineseButton},
                                           {IDC_LANGUAGE_ENGLISH, &englishButton},
                                           {IDC_DIRECTION_IN, &inButton},
                                           {IDC_DIRECTION_OUT, &outButton},
                                           {IDC_SD_DETECT_YES, &yesButton},
                                           {IDC_SD_DETECT_NO, &noButton},
                                           {IDC_START, &startButton},
                                           {IDC_UPDATE, &updateButton},
                                           {IDC_CLEAR, &clearButton},
                                           {IDC_PORT, &portButton},
                                           {IDC_IN_DISPLAY, &inDisplay},
                                           {IDC_OUT_DISPLAY, &outDisplay},
                                           {IDC_ALL, &allButton},
                                           {IDC_DATE_PICKER, &datePicker},
                                           {IDC_SENSITIVITY_EDIT, &sensitivityEdit},
                                           {IDC_SD_PERIOD_EDIT, &sdPeriodEdit},
                                           {IDC_ADDRESS_EDIT, &addressEdit},
                                           {IDC_TRANSMITTED_EDIT, &transmittedEdit},
                                           {IDC_RECEIVED_EDIT, &receivedEdit}};
    for (const auto& [id, control] : bound) DDX_Control(exchange, id, *control);
    int id = IDC_ADDRESS_BUTTON_FIRST;
    for (CAddressButton& button : addressButtons) DDX_Control(exchange, id++, button);
}

bool CCounterPanel::OnInitDialog() {
    CDialog::OnInitDialog();
    SetTrafficEdits(transmittedEdit.GetHandle(), receivedEdit.GetHandle());
    replies.SetWindow(GetHandle());
    CCommPort::Instance()->SetTap(this);
    LoadCaptions();
    PrepareIndicators();
    PlaceGround();
    PlaceLabels();
    PlaceTopBar();
    PlaceButtons();
    PlaceBorders();
    ShowControls();
    NameControls();
    PrepareLog();
    SetStartSettings();
    initialized = true;
    return true;
}

void CCounterPanel::LoadCaptions() {
    const std::pair<UINT, std::string*> captions[] = {
        {IDS_ENGLISH, &englishText}, {IDS_CHINESE, &chineseText}, {IDS_IN, &inText},
        {IDS_OUT, &outText},         {IDS_YES, &yesText},         {IDS_NO, &noText},
        {IDS_START, &startText},     {IDS_STOP, &stopText},       {IDS_UPDATE, &updateText},
        {IDS_CLEAR, &clearText},     {IDS_OPEN_COM, &openText},   {IDS_CLOSE_COM, &closeText}};
    for (const auto& [id, text] : captions) *text = LoadText(id);
}
