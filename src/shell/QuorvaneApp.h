// The application: language, the frame dialog in which the whole run passes, and the end of the process.
#pragma once

#include "framework/App.h"

class CQuorvaneApp : public CWinApp {
public:
    CQuorvaneApp() : CWinApp("Quorvane") {}

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

protected:
    bool InitInstance() override;
};
