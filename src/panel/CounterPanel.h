// The main dialog: what is known of each counter, what the user may do with it, and the traffic on the line.
//
// It joins three things that know nothing of each other: the table of counters, the form of a counter's settings, and
// the traffic log. The rest has a source for each concern: CounterPanel.cpp (messages, start), PanelLayout.cpp
// (pictures, places and names of the controls), PanelKeys.cpp (Enter and Tab), PanelReplies.cpp (replies of polls and
// settings reads), PanelPolling.cpp (Start and Stop), PanelSettings.cpp (choices, edits, Update, Clear),
// PanelResults.cpp (what became of a command), PanelMenus.cpp (the popups), PanelPort.cpp (address buttons, port,
// language).
//
// Everything runs on the user-interface thread but the two taps of the traffic log, which the worker calls.
#pragma once

#include <array>
#include <string>

#include "framework/Controls.h"
#include "framework/Dialog.h"
#include "link/ReplyPoster.h"
#include "link/WireCommands.h"
#include "panel/CounterTable.h"
#include "panel/PanelFrame.h"
#include "panel/ResultText.h"
#include "panel/SettingsForm.h"
#include "panel/TrafficLog.h"
#include "pictures/SkinPicture.h"
#include "skin/IconButton.h"
#include "skin/NamedControl.h"
#include "skin/SegmentDisplay.h"
#include "skin/SkinBar.h"
#include "skin/SkinButton.h"
#include "skin/SkinStatic.h"

class COwnerDrawMenu;

// A check box that stands for one counter. It has no address before the panel has shown it.
class CAddressButton : public CIconButton {
public:
    std::int32_t address = -1;
};

class CCounterPanel : public CDialog, public CCounterTable, public CTrafficLog, public CSettingsForm {
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
    // Gives the focus to Start if it isn't on a control that can be used.
    void KeepFocus() const;

    // The end: the poll timer is killed. The captions stay.
    void StopWork();

    // Writes the record of the address into the controls; an address beyond the table changes nothing.
    void ShowCounter(std::int32_t address);

    void ShowPortState(bool open) override;

protected:
    bool OnInitDialog() override;
    void DoDataExchange(CDataExchange& exchange) override;
    int HostOf(int control) const override;

private:
    // Start and layout. The layout is fixed in pixels; it doesn't follow the window.
    void LoadCaptions();
    void PrepareIndicators();
    void PlaceGround();
    void PlaceLabels();
    void PlaceTopBar();
    void PlaceButtons();
    void PlaceBorders();
    void ShowControls() const;
    void NameControls();
    void OnPaint();
    void OnSize(UINT kind, int width, int height);
    std::string ThemeFile(const char* name) const { return themeDir + "\\" + name; }

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

    // Polling.
    void StartPolling();
    void StopPolling();
    void OnTimer(UINT_PTR id);

    // Settings and Clear.
    void OnLanguageChoice(UINT id);
    void OnDirectionChoice(UINT id);
    void OnSdDetectChoice(UINT id);
    void OnSensitivityChange();
    void OnPeriodChange();
    void OnAddressChange();
    void OnAll();
    void OnUpdate();
    void OnClear();
    void Choose(const ChoicePair& pair, std::int32_t value);

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
    void OnTrafficChange() { RefreshTrafficTotals(); }
    void OnOpenLog() { OpenLog(); }

    CSkinStatic panelStatic, dateLabel, languageLabel, sensitivityLabel, directionLabel, sdDetectLabel, sdPeriodLabel,
        addressLabel, upperBorder, lowerBorder, rightBorder, inLabel, outLabel;
    CSkinBar topBar;
    CSkinButton startButton, updateButton, clearButton, portButton;
    CSegmentDisplay inDisplay, outDisplay;
    CIconButton allButton;
    CNamedControl<CWnd> transmittedEdit, receivedEdit;
    std::array<CAddressButton, counterCount> addressButtons;

    std::string startText, stopText, updateText, clearText, openText, closeText;

    const std::string themeDir = themeFolder;
    CSkinPicture bottomBorder; // the panel's own bottom edge
    bool initialized = false;

    const int pollInterval = 200; // milliseconds
    bool polling = false;
    bool allCounters = false; // set: Update and Clear go to every counter on the line
    int lastPortState = -1;   // what ShowPortState showed last; -1 before its first call
};
