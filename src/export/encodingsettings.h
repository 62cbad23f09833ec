#pragma once

#include "encoderarguments.h"

/// The choices that the settings store holds now; its absent keys give the defaults.
EncodingSettings readEncodingSettings();
