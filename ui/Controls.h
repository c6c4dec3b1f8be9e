// Every control of the toolkit, for the forms.
#pragma once

#include "ui/Button.h"
#include "ui/DatePicker.h"
#include "ui/ListControls.h"
#include "ui/Panels.h"
#include "ui/PopupMenu.h"
#include "ui/TextBox.h"
