#include "framework/DialogFont.h"

#include <algorithm>

#include "framework/DialogTemplate.h"

CFont MakeDialogFont(const DialogFont& described, int height) {
    const std::u16string face = described.characterSet == GB2312_CHARSET ? u"SimSun" : described.face;
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWeight = described.weight;
    font.lfItalic = described.italic ? 1 : 0;
    font.lfCharSet = described.characterSet;
    std::copy_n(face.begin(), std::min<std::size_t>(face.size(), LF_FACESIZE - 1), font.lfFaceName);
    return CFont(font);
}
