#include "support/SampleHeaders.h"

FcfHeader headerWithoutFunctions()
{
    FcfHeader header;
    header.totalPages = 34;
    header.totalBlocks = 4;
    header.totalSize = 610436;
    header.binPages = 33;
    header.binBlocks = 4;
    header.binFileSize = 608324;
    header.moduleCode = 1;
    header.deviceCode = 1;
    header.configNumber = 1;
    header.versionMajor = 2;
    header.versionMinor = 7;
    header.fileName = "top.fcf";
    header.ciNumber = "CI-0042";
    header.author = "R. Vos";
    header.date = "21 Nov 2026";
    header.time = "09:05:07";
    header.description = "Front end";
    return header;
}

FcfHeader headerInSeveralScripts()
{
    FcfHeader header;
    header.totalPages = 64;
    header.totalSize = 135168;
    header.binPages = 63;
    header.binFileSize = 133056;
    header.moduleCode = 2;
    header.deviceCode = 8;
    header.configNumber = 10;
    header.versionMinor = -1;
    header.fileName = QString::fromUtf8("tête & \"queue\" <1>.fcf");
    header.ciNumber = " 7: 8 ";
    header.author = QString::fromUtf8("Ольга Мбеки");
    header.date = "21/11/2026";
    header.time = "23:59:59";
    header.description = QString::fromUtf8(" \n雷达前端: <b>not bold</b>\n\n& the last line \n\n");
    FcfFunction chirp;
    chirp.name = " Pulse & \"chirp\" ";
    chirp.author = QString::fromUtf8("Zoë");
    chirp.ciNumber = "42";
    chirp.description = "\tMatched filter,\n1024 taps ";
    header.functions << chirp << FcfFunction();
    return header;
}

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
