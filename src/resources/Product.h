/* How the product names itself, once for code, resource scripts and the build. They are the same in every language, so
   they aren't in the string tables. */
#pragma once

#define PRODUCT_VERSION_NUMBERS 1, 1, 0, 0
#define PRODUCT_VERSION "1.1-20101001" /* with the date of the release */
#define PRODUCT_NAME "Keldrun"
#define PRODUCT_COMPANY "Brenholt"
#define PRODUCT_SITE "www.brenholt.example"
#define PRODUCT_WEB "http://" PRODUCT_SITE
#define PRODUCT_MAIL "support@brenholt.example"

/* Title of the main window, and default caption of message boxes. A second copy of the program finds the first one by a
   window of exactly this title, so no dialog template may carry it. */
#define PRODUCT_TITLE PRODUCT_NAME " Version " PRODUCT_VERSION "       " PRODUCT_SITE
