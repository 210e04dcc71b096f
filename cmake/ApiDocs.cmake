# The target api-docs, where Doxygen is installed: a reference of the SDK's headers in the build folder's
# api-docs/html. A comment that does not fit what it is about is an error.

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(DOXYGEN_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/api-docs")
set(DOXYGEN_PROJECT_NAME "Host SDK")
set(headers host/sdk/framework/include host/sdk/core/include)
set(DOXYGEN_STRIP_FROM_PATH ${headers})
set(DOXYGEN_STRIP_FROM_INC_PATH ${headers})
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
# A comment is often about a group, such as a setter and its getter, so that a member without one of its
# own is listed, and no error.
set(DOXYGEN_EXTRACT_ALL YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_PREDEFINED
    "Q_OBJECT=" "Q_SIGNALS=Q_SIGNALS" "Q_DECLARE_INTERFACE(x,y)=" "Q_DISABLE_COPY(x)="
    "Q_DECLARE_FLAGS(x,y)=" "QTILITIES_SHARED_EXPORT=" "ORVANTICCORE_SHARED_EXPORT=")
doxygen_add_docs(api-docs ${headers}
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Making the reference of the SDK's headers")
