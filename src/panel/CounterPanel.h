// The main dialog: what is known of each counter, what the user may do with it, and the traffic on the line.
//
// Its concerns have a source each: CounterPanel.cpp (messages, start), PanelLayout.cpp (pictures and places of the
// controls), PanelNames.cpp (for assistive software), PanelKeys.cpp (Enter and Tab), PanelReplies.cpp (replies of polls
// and settings reads), PanelPolling.cpp (Start and Stop), PanelSettings.cpp (choices, edits, Update, Clear),
// PanelResults.cpp (what became of a command), PanelMenus.cpp (the popups), PanelPort.cpp (address buttons, port,
// language), PanelTraffic.cpp (log and totals).
//
// Everything runs on the user-interface thread but LogTransmitted and LogReceived, which the worker calls.
// The settings that the user edits live in the controls: of a pair of choices, the button in force is the disabled one.
#pragma once

#include <array>
#include <atomic>
#include <string>
#include <vector>

#include "framework/Controls.h"
#include "framework/Dialog.h"
#include "link/ReplyPoster.h"
#include "link/WireCommands.h"
#include "panel/CounterTable.h"
#include "panel/PanelFrame.h"
#include "panel/ResultText.h"
#include "serial/TrafficTap.h"
#include "skin/IconButton.h"
#include "skin/NamedControl.h"
#include "skin/SegmentDisplay.h"
#include "skin/SkinBar.h"
#include "pictures/SkinPicture.h"
#include "skin/SkinButton.h"
#include "skin/SkinStatic.h"

class COwnerDrawMenu;

// A check box that stands for one counter. It has no address before the panel has shown it.
class CAddressButton : public CIconButton {
public:
    std::int32_t address = -1;
};

class CCounterPanel : public CDialog, public CCounterTable, public CTrafficTap {
public:
    CCounterPanel();

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // To be set before the window exists; not owned.
    CPanelFrame* frame = nullptr;

    // Brings the replies of the commands to this panel. `replyTarget` is who gets them from the worker: whoever steps
    // in between passes them on to `replies`.
    CReplyPoster replies;
    CReplyTarget* replyTarget = &replies;

    // Queues a poll, or a settings read, of one counter.
    virtual void SendPoll(std::uint8_t address);
    void SendReadSettings(std::uint8_t address);

    // Start and Stop; also the Enter key, wherever in the panel the focus is. Escape does nothing.
    void OnStartStop();
    void OnOK() override { OnStartStop(); }
    void OnCancel() override {}
    bool PreTranslateMessage(MSG& message) override;

    // The end: the poll timer is killed. The captions stay.
    void StopWork();

    // Writes the record of the address into the controls; an address beyond the table changes nothing.
    void ShowCounter(std::int32_t address);

    void LogTransmitted(const void* buffer, std::uint32_t count) override;
    void LogReceived(const void* buffer, std::uint32_t count) override;
    void ShowPortState(bool open) override;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;

private:
    // A pair of buttons that works like two radio buttons.
    struct ChoicePair {
        CSkinButton& first;
        const std::string& firstText;
        CSkinButton& second;
        const std::string& secondText;
    };
    ChoicePair LanguagePair() { return {englishButton, englishText, chineseButton, chineseText}; }
    ChoicePair DirectionPair() { return {inButton, inText, outButton, outText}; }
    ChoicePair SdDetectPair() { return {yesButton, yesText, noButton, noText}; }

    // Start and layout. The layout is fixed in pixels; it doesn't follow the window.
    void LoadCaptions();
    void ListControls();
    void PrepareIndicators();
    void FitPickerFont();
    void PlaceGround();
    void PlaceLabels();
    void PlaceTopBar();
    void PlaceButtons();
    void PlaceBorders();
    void RestoreStacking() const;
    void NameControls();
    void SetStartState();
    void OnPaint();
    void OnSize(UINT kind, int width, int height);
    std::string ThemeFile(const char* name) const { return themeDir + "\\" + name; }
    void CaptionButton(CSkinButton& button, const std::string& text, COLORREF color);

    void MoveFocus(bool backwards) const;

    // Replies of polls and settings reads.
    LRESULT OnPollReply(WPARAM wParam, LPARAM lParam);
    LRESULT OnSettingsReply(WPARAM wParam, LPARAM lParam);
    LRESULT OnShowCounter(WPARAM wParam, LPARAM lParam);
    virtual void HandlePollReply(const ReplyBlock& block);
    void HandleSettingsReply(const ReplyBlock& block);
    void UpdatePresence(std::int32_t address);
    void ShowAddressButtons();
    static void ShowCount(CSegmentDisplay& display, std::int32_t count);
    void ShowNumber(int editId, std::int32_t number);
    void ShowPair(const ChoicePair& pair, std::int32_t value);
    void ShowChoice(CSkinButton& button, const std::string& text, bool inForce);

    // Polling.
    void StartPolling();
    void StopPolling();
    void OnTimer(UINT_PTR id);

    // Settings and Clear.
    void OnEnglish();
    void OnChinese();
    void OnIn();
    void OnOut();
    void OnYes();
    void OnNo();
    void OnSensitivityChange();
    void OnPeriodChange();
    void OnAddressChange();
    void OnAll();
    void OnUpdate();
    void OnClear();
    void Choose(const ChoicePair& pair, std::int32_t value);
    CounterRecord ReadControls();

    // Results of commands.
    LRESULT OnClearReply(WPARAM wParam, LPARAM lParam);
    LRESULT OnWriteReply(WPARAM wParam, LPARAM lParam);
    LRESULT OnAddressReply(WPARAM wParam, LPARAM lParam);
    LRESULT OnClockReply(WPARAM wParam, LPARAM lParam);
    LRESULT HandleOutcome(RequestCode code, WPARAM wParam);
    void HandleResults(const WireCommand& command, const ReplyBlock& block);
    void HandleMove(const ReplyBlock& block);

    // The popups behind the buttons of the top bar.
    void OnPortMenu();
    void OnHelpMenu();
    void OnLanguageMenu();
    void ShowPopup(COwnerDrawMenu& popup);

    // Address buttons, port, language.
    void OnAddressButton(UINT id);
    void OnPortCommand(UINT id);
    void OnOpenCom();
    void OnComSetting();
    void OnLanguageEnglish();
    void OnLanguageChinese();
    void OnAbout();

    // Traffic.
    void PrepareLog();
    void AppendLogLine(const std::string& text) const;
    void LogTransfer(const char* arrow, std::atomic<std::int32_t>& total, int editId, const void* buffer,
                     std::uint32_t count);
    void ShowTrafficTotals();
    void OnTrafficChange();
    void OnOpenLog();

    std::vector<HWND> templateOrder; // its controls

    CSkinStatic panelStatic, dateLabel, languageLabel, sensitivityLabel, directionLabel, sdDetectLabel, sdPeriodLabel,
        addressLabel, totalsLabel, upperBorder, lowerBorder, rightBorder, inLabel, outLabel;
    CSkinBar topBar;
    CSkinButton chineseButton, englishButton, inButton, outButton, yesButton, noButton, startButton, updateButton,
        clearButton, portButton;
    CSegmentDisplay inDisplay, outDisplay;
    CIconButton allButton;
    CFont pickerFont; // empty while the picker has the dialog's
    CNamedControl<CDateTimeCtrl> datePicker;
    CNamedControl<CWnd> sensitivityEdit, sdPeriodEdit, addressEdit, transmittedEdit, receivedEdit;
    std::array<CAddressButton, counterCount> addressButtons;

    std::string englishText, chineseText, inText, outText, yesText, noText, startText, stopText, updateText, clearText,
        openText, closeText;

    const std::string themeDir = "Themes\\DefaultTheme"; // relative to the current directory
    CSkinPicture bottomBorder;                           // the panel's own bottom edge
    bool initialized = false;

    const COLORREF activeColor = 0xFF0000;   // blue: captions in force
    const COLORREF inactiveColor = 0x505050; // dark grey: the others

    const int pollInterval = 200; // milliseconds
    bool polling = false;
    bool allCounters = false; // set: Update and Clear go to every counter on the line
    int lastPortState = -1;   // what ShowPortState showed last; -1 before its first call
    std::wstring logPath;     // set once, before the worker can log; wide, as a folder's name may be of any language

    // Shared with the worker.
    std::atomic<HWND> replyWindow{nullptr}; // this panel's window, from the beginning of its initialisation on
    std::atomic<std::int32_t> txByteTotal{0};
    std::atomic<std::int32_t> rxByteTotal{0};

    std::int32_t shownTxTotal = 0, shownRxTotal = 0; // in the totals' label, which is blank at first
};
