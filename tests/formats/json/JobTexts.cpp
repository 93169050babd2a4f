#include "tests/formats/json/JobTexts.h"

namespace nestrix::support {

const std::string WHOLE_JOB = R"({
  "strip": {"width": 1200, "spacing": 2, "margin": 5.5},
  "unit": "mm",
  "scale": 25.4,
  "method": "free",
  "seed": 7,
  "threads": 4,
  "keep_holes_empty": true,
  "limits": {"time": 90, "steps": 100000, "target_height": 800, "target_density": 0.85, "patience": 30},
  "turns": [0, 180],
  "mirror": false,
  "pieces": [
    {"file": "bracket.dxf", "quantity": 12, "turns": "any", "mirror": true, "name": "bracket"},
    {"outline": [[0, 0], [30, 0], [30, 20]], "holes": [[[1, 1], [2, 1], [2, 2]]], "name": "wedge"}
  ]
})";

const std::string DROP_JOB = R"({
  "method": "drop",
  "seed": 3,
  "drop": {"population": 50, "generations": 20, "mutation": 0.25},
  "pieces": [{"file": "/samples/star.pol", "quantity": 3}]
})";

std::vector<STextFault> JobFaults() {
    return {
        {"\"strip\"", "\"stripe\"", "2: /stripe: there is no member \"stripe\"; is \"strip\" meant?"},
        {"\"spacing\"", "\"gap\"", "2: /strip/gap: there is no member \"gap\"\n"},
        {"\"quantity\"", "\"quantiti\"",
         "13: /pieces/0/quantiti: there is no member \"quantiti\"; is \"quantity\" meant?"},
        {"\"keep_holes_empty\"", "\"keep-holes-empty\"", "is \"keep_holes_empty\" meant?"},
        {"\"unit\": \"mm\"", "\"unit\": \"mile\"",
         "3: /unit: \"mile\" is none of the units mm, cm, m, in, ft, pt, px"},
        {"25.4", "0", "4: /scale: 0 is not a number above 0"},
        {"25.4", "-1e-9", "4: /scale: -0.000000001 is not a number above 0"},
        {"\"free\"", "\"both\"", "5: /method: \"both\" is none of free, drop"},
        {"\"free\"", "\"drop\"", "2: /strip: only the method \"free\" has this"},
        {"\"seed\": 7", "\"seed\": 4294967296",
         "6: /seed: 4294967296 is not a whole number from 0 to 4294967295"},
        {"\"threads\": 4", "\"threads\": 0", "7: /threads: 0 is not a whole number from 1 to 1024"},
        {"true,\n", "1,\n", "8: /keep_holes_empty: 1 is neither true nor false"},
        {"\"time\": 90", "\"time\": \"90s\"", "9: /limits/time: \"90s\" is not a number of seconds above 0"},
        {"\"time\"", "\"tiem\"", "9: /limits/tiem: there is no member \"tiem\"; is \"time\" meant?"},
        {"100000", "1.5", "9: /limits/steps: 1.5 is not a whole number"},
        {"0.85", "85", "9: /limits/target_density: 85 is not a share above 0 and up to 1, such as 0.85"},
        {"\"patience\": 30", "\"patience\": 0", "9: /limits/patience: 0 is not a number of seconds above 0"},
        {"[0, 180]", "[]", "10: /turns: the list of turns is empty; as drawn is [0]"},
        {"[0, 180]", "[0, \"pi\"]", "10: /turns/1: \"pi\" is not a number"},
        {"\"turns\": \"any\"", "\"turns\": \"none\"",
         "13: /pieces/0/turns: \"none\" is neither \"any\" nor a list of degrees"},
        {"12,", "-1,", "13: /pieces/0/quantity: -1 is not a whole number from 0 to 2147483647"},
        {"12,", "\"twelve\",", "13: /pieces/0/quantity: \"twelve\" is not a whole number"},
        {"\"file\": \"bracket.dxf\", ", "", "13: /pieces/0: a piece has either a \"file\" or an \"outline\""},
        {"\"file\"", "\"outline\": [[0, 0], [1, 0], [1, 1]], \"file\"", "13: /pieces/0: a piece has either"},
        {"\"file\"", "\"holes\": [], \"file\"", "13: /pieces/0: \"holes\" belong to an \"outline\""},
        {"\"file\"", "\"piece\": 0, \"file\"",
         "13: /pieces/0/piece: 0 is not a whole number from 1 to 2147483647"},
        {"\"file\"", "\"piece\": [1], \"file\"",
         "13: /pieces/0/piece: an array is neither the name of a piece nor its number in the file, from 1"},
        {"\"name\": \"wedge\"", "\"piece\": \"wedge\"", "14: /pieces/1: \"piece\" chooses one of a \"file\""},
        {"bracket.dxf", "", "13: /pieces/0: its \"file\" is no name of a file"},
        {", [30, 20]", "", "14: /pieces/1: an outline or a hole has three points at least"},
        {"[2, 1], ", "", "14: /pieces/1: an outline or a hole has three points at least"},
        {"\"mirror\": false", "\"drop\": {}", "11: /drop: only the method \"drop\" has this"},
        {"\"pieces\"", "\"parts\"", "1: the member \"pieces\" is missing"}};
}

}  // namespace nestrix::support
