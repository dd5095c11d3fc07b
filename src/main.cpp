// Cotirama Brizna 4.1, a terminal that shows the Spanish stock market in real time.
// Copyright (C) The Cotirama authors
//
// This program is free software: you can redistribute it and/or modify it under the terms of the
// GNU General Public License as published by the Free Software Foundation, either version 3 of the
// License, or (at your option) any later version. It comes without any warranty; see LICENSE.

#include "qt/app/app.h"

int main(int argc, char** argv) { return qt::Run(argc, argv); }
