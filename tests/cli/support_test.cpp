// Brings what the tests of this folder share into their program, which is built of *_test.cpp.
#include "cli/cli_fixture.cpp"
#include "cli/json_row.cpp"
#include "cli/output_text.cpp"
#include "cli/run_cli.cpp"
