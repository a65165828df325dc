#include "panel/SettingsChange.h"

SettingsChange CompareSettings(const CounterRecord& former, const CounterRecord& wanted) {
    SettingsChange change;
    change.writeSettings = former.sensitivity != wanted.sensitivity || former.direction != wanted.direction ||
                           former.language != wanted.language || former.sdDetect != wanted.sdDetect ||
                           former.sdPeriod != wanted.sdPeriod;
    change.setClock = !change.writeSettings && former.deviceTime != wanted.deviceTime;
    change.setAddress = former.address != wanted.address;
    return change;
}
