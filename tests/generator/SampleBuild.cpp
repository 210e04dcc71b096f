#include "generator/SampleBuild.h"

FcfHeader sampleHeader()
{
    FcfHeader header;
    header.totalPages = 1;
    header.totalBlocks = 2;
    header.totalSize = 3;
    header.binPages = 4;
    header.binBlocks = 5;
    header.binFileSize = 6;
    header.moduleCode = 2;
    header.deviceCode = 4;
    header.configNumber = 7;
    header.versionMajor = 8;
    header.versionMinor = 9;
    header.fileName = "top.fcf";
    header.ciNumber = "CI-0042";
    header.author = "R. Vos";
    header.description = "one\ntwo\nthree";
    FcfFunction function;
    function.name = " padded ";
    function.author = "author";
    function.ciNumber = "42";
    function.description = "first,\nsecond\nthird";
    header.functions << function;
    function.name = "plain";
    header.functions << function;
    return header;
}
