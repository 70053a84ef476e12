// Writes a sheet of squares of each of some sizes, and a pad of dotted paper: an example of the library.

#include <linealis/Linealis.h>

#include <exception>
#include <fstream>
#include <iostream>
#include <string>

int main()
{
    try {
        for (const std::string size : {"0.2", "0.5", "1"}) {
            linealis::Sheet sheet("grid");
            sheet.Set("paper-size", "A4");
            sheet.Set("units", "cm");
            sheet.Set("vertical-spacing", size);
            sheet.Set("horizontal-spacing", size);
            sheet.Set("line-color", "#6080C0");
            const std::string name = "squares-" + size + "cm.pdf";
            std::ofstream(name, std::ios::binary) << sheet.Page();
            std::cout << name << ": lines " << sheet.Get("vertical-spacing") << " cm apart\n";
        }
        linealis::PadOptions pad;
        pad.pages = 20;
        pad.up = 2;
        const linealis::Sheet dots("dots");
        std::ofstream("dots-pad.pdf", std::ios::binary) << linealis::Pad({&dots}, pad);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
