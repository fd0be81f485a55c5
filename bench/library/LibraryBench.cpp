// The library as a whole: written, read, saved, loaded, folded and asked for identities, beside
// floors and peers of the same run. Prints a table of ratios.

#include "bench/Comparisons.h"

int main(int argc, char** argv) {
    return brinmoor::runComparisons(
        argc, argv,
        {{"serialise 100,000 links", "serialise/100000", "copying the bytes",
          "copyDocument/100000"},
         {"", "serialise/100000", "RapidJSON", "serialiseByRapidJson/100000"},
         {"", "serialise/100000", "QJsonDocument", "serialiseByQt/100000"},
         {"serialise them into one text", "serialiseWhole/100000", "RapidJSON",
          "serialiseByRapidJson/100000"},
         {"save 1,000 links", "save/1000", "bare safe write", "writeBareBytes/1000"},
         {"save 10,000 links", "save/10000", "bare safe write", "writeBareBytes/10000"},
         {"save 100,000 links", "save/100000", "bare safe write", "writeBareBytes/100000"},
         {"load 100,000 links", "load/100000", "reading the file", "readFile/100000"},
         {"", "load/100000", "RapidJSON, strict", "loadByRapidJson/100000"},
         {"", "load/100000", "RapidJSON, careless", "loadCarelesslyByRapidJson/100000"},
         {"", "load/100000", "QJsonDocument", "loadByQt/100000"},
         {"fold 100,000 titles", "fold/100000", "copying them", "copyTitles/100000"},
         {"", "fold/100000", "ICU", "foldByIcu/100000"},
         {"fold titles and addresses in the records", "foldInPlace/100000", "copying them",
          "copyInPlace/100000"},
         {"100,000 identities", "identity/100000", "copying the addresses", "copyAddresses/100000"},
         {"insert a link into 100,000", "insertOne/100000", "copying the addresses",
          "copyAddresses/100000"}});
}
