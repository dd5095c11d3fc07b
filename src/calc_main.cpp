// The helper that carries the terminal's rows into a sheet of a running office.

#include "office/run.h"

int main() { return office::Run(); }
