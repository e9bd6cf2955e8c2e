#pragma once

// The chief header of the frame: what a class of the component is written with.

#include "frame/class_table.h"
#include "frame/component_object.h"
#include "frame/conversions.h"
#include "frame/crossing.h"
#include "frame/error.h"
#include "frame/failure_marks.h"
#include "frame/method_frame.h"
#include "frame/object.h"
#include "frame/parameters.h"
#include "frame/records.h"
#include "frame/services.h"
#include "frame/values.h"
#include "frame/variant.h"
