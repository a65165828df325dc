#include "shell/AboutBox.h"

#include <string>

#include "framework/ResourceModule.h"
#include "resources/ResourceIds.h"
#include "shell/ProductStrings.h"
#include "shell/ShowMessage.h"

void ShowAbout() {
    const std::string text =
        std::string(productVersion) + "\n" + productCompany + "\n" + productWeb + "\n" + productMail;
    ShowMessage(text, LoadText(IDS_ABOUT_TITLE) + productTitle, 0);
}
