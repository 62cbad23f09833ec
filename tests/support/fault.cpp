#include "fault.h"

QProcessEnvironment environmentWith(const Fault& fault) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", KESTROVA_FAILING_CALLS);
    environment.insert("FAILING_CALL", fault.call);
    environment.insert("FAILING_ERROR", QString::number(fault.error));
    environment.insert("FAILING_FILE", fault.file);
    environment.insert("FAILING_AFTER", QString::number(fault.roomInBytes));
    // The sanitizer's library comes second.
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    return environment;
}
