// A control that has a name for assistive software beside or in place of its text. Nothing of it is seen.
#pragma once

#include <string>
#include <utility>

#include "framework/Controls.h"
#include "skin/AccessibleName.h"

// Made for CWnd, CDateTimeCtrl and CSkinButton.
template <class Control>
class CNamedControl : public Control {
public:
    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // The platform is told when somebody first asks for the control's object, as its store of names takes time and room
    // that most users have no use for.
    void SetAccessibleName(std::string text) { accessibleText = std::move(text); }

protected:
    void PreSubclassWindow() override {
        name.Clear(); // of a window that this object has left
        Control::PreSubclassWindow();
    }

private:
    LRESULT OnGetObject(WPARAM, LPARAM) {
        if (!name.IsKept() && !accessibleText.empty()) name.Give(this->GetHandle(), accessibleText);
        return this->Default();
    }
    void OnDestroy() {
        name.Clear();
        this->Default();
    }

    std::string accessibleText;
    CAccessibleName name;
};
