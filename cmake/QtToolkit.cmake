# The Qt that is built with. Targets name its modules as ${QT_CORE}, ${QT_WIDGETS} and ${QT_TEST}; with
# Qt 4 the path of its qmake goes into QT_QMAKE_EXECUTABLE.

set(ZORV_QT 5 CACHE STRING
    "Qt to build with: 5 or 6 for everything, 4 for the plug-in of a Qt 4.8 host")
set_property(CACHE ZORV_QT PROPERTY STRINGS 6 5 4)

option(ZORV_PLUGIN_ALONE
    "Build what runs in the host and its tests alone, as always with Qt 4" OFF)
if(ZORV_QT EQUAL 4)
    set(ZORV_PLUGIN_ALONE ON)
endif()

if(ZORV_QT EQUAL 6)
    # Core5Compat has the codecs of text, which Qt 6 no longer has itself.
    find_package(Qt6 6.4 REQUIRED COMPONENTS Core Core5Compat Gui Widgets)
    set(QT_CORE Qt6::Core Qt6::Core5Compat)
    set(QT_WIDGETS Qt6::Widgets Qt6::Core5Compat)
    set(QT_TEST Qt6::Test)
elseif(ZORV_QT EQUAL 5)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets)
    set(QT_CORE Qt5::Core)
    set(QT_WIDGETS Qt5::Widgets)
    set(QT_TEST Qt5::Test)
elseif(ZORV_QT EQUAL 4)
    find_package(Qt4 4.8 REQUIRED QtCore QtGui)
    set(QT_CORE Qt4::QtCore)
    set(QT_WIDGETS Qt4::QtGui)
    set(QT_TEST Qt4::QtTest)
    # Its headers call members of null objects, which newer compilers take as proof that there are
    # none.
    add_compile_options(-fno-delete-null-pointer-checks)
else()
    message(FATAL_ERROR "ZORV_QT is ${ZORV_QT}; it must be 4, 5 or 6")
endif()
