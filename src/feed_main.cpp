// cotirama-feed: the market embedded in Cotirama Brizna 4.1, as a server of its own.
// Copyright (C) The Cotirama authors
//
// This program is free software: you can redistribute it and/or modify it under the terms of the
// GNU General Public License as published by the Free Software Foundation, either version 3 of the
// License, or (at your option) any later version. It comes without any warranty; see LICENSE.

#include "qt/app/feed_app.h"

int main(int argc, char** argv) { return qt::RunFeed(argc, argv); }
