// The texts by which the product names itself. They are the same in every language, so they are fixed here rather than
// in the string tables; the version resource repeats them.
#pragma once

// "Version", the number, and the date of the release.
inline constexpr char productVersion[] = "Version 1.1-20101001";

// Title of the main window, and default caption of message boxes. A second copy of the program finds the first one by a
// window of exactly this title, so no dialog template may carry it.
inline constexpr char productTitle[] = "Keldrun Version 1.1-20101001       www.brenholt.example";

inline constexpr char productCompany[] = "Brenholt";
inline constexpr char productWeb[] = "http://www.brenholt.example";
inline constexpr char productMail[] = "support@brenholt.example";
