#include "cli/Main.h"

int main(int argc, char** argv)
{
    return linealis::cli::Main(argc, argv);
}
