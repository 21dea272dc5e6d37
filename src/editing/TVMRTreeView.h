// The tree of the custom security settings: its options behave as option buttons. The general tree has all of that.
#pragma once

#include "ui/TreeView.h"

using TVMRTreeView = ui::TreeView;
