#pragma once

#include "platform/controls.h"
#include "platform/ticker.h"

namespace feed {

/// The controls of the main window that the session keeps up to date. They outlive the session.
struct Strip {
  platform::PictureBox& Picture2;  // session light
  platform::Label& Label2;         // count of instruments; red while data arrive
  platform::Label& LT;             // server time
  platform::Label& LF;             // server date
  platform::Ticker& Tickctl1;      // market ticker
  platform::Ticker& Tickctl2;      // status ticker
};

}  // namespace feed
