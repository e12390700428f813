#pragma once

// Every public class of the Ringbook library.

#include "core/CStream.h"
#include "core/DateTime.h"
#include "core/DefaultDisplayText.h"
#include "core/DefaultSettings.h"
#include "core/DefaultUtility.h"
#include "core/Enums.h"
#include "core/Error.h"
#include "core/HostServices.h"
#include "core/IListControl.h"
#include "core/IStream.h"
#include "core/Object.h"
#include "core/SeededDice.h"
#include "core/StderrMessageSink.h"
#include "core/StreamRecord.h"
#include "core/Text.h"
#include "core/Variant.h"
#include "core/Version.h"
#include "core/VersionInfo.h"
