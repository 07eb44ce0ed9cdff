// Draws a chart of two series, as the program draws its own, from lines on the standard input: the title of
// the axis and the names of the series, then a label and two values a line, parted by tabs.
#include "pictures/ChartFile.h"
#include "pictures/PictureFiles.h"

#include <fstream>
#include <iostream>
#include <sstream>

using namespace vastrel;

namespace {

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, '\t');)
        fields.push_back(field);
    fields.resize(3);
    return fields;
}

ChartPicture ReadChart(std::istream& stream) {
    std::string line;
    std::getline(stream, line);
    const auto head = Fields(line);
    std::vector<std::vector<std::string>> rows;
    while (std::getline(stream, line))
        rows.push_back(Fields(line));
    ChartPicture chart;
    chart.AxisTitle = head[0];
    chart.SeriesNames[0] = head[1];
    chart.SeriesNames[1] = head[2];
    chart.Data.ReDim(static_cast<std::ptrdiff_t>(rows.size()) - 1, 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        chart.RowLabels.push_back(rows[i][0]);
        for (std::size_t series = 0; series < 2; ++series)
            chart.Data(static_cast<std::ptrdiff_t>(i), static_cast<std::ptrdiff_t>(series)) =
                std::stod(rows[i][series + 1]);
    }
    return chart;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "vastrel-validation-pictures FILE.png < rows\n";
        return 2;
    }
    UsePicturesOffscreen();
    const std::string bytes = ChartFile("png", ReadChart(std::cin));
    std::ofstream file(argv[1], std::ios::binary);
    file << bytes;
    return file.flush() ? 0 : 1;
}
