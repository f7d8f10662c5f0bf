# Flags shared by every target of the project.
add_library(quenoria_compiler INTERFACE)
target_compile_options(quenoria_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror -fdiagnostics-color=auto)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 sees an uninitialised text in every optimised move of an empty std::optional.
    target_compile_options(quenoria_compiler INTERFACE -Wno-maybe-uninitialized)
endif()
target_compile_definitions(quenoria_compiler INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What a user runs defends itself, whether it was built by hand or as a package.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_definitions(quenoria_compiler INTERFACE _FORTIFY_SOURCE=2)
    target_compile_options(quenoria_compiler INTERFACE
        -fstack-protector-strong -fstack-clash-protection)
    target_link_options(quenoria_compiler INTERFACE -pie -Wl,-z,relro -Wl,-z,now)
endif()

if(QUENORIA_SANITIZE)
    target_compile_options(quenoria_compiler INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(quenoria_compiler INTERFACE -fsanitize=address,undefined)
endif()

if(QUENORIA_FUZZ) # the fuzzer follows which lines its inputs reach
    target_compile_options(quenoria_compiler INTERFACE -fsanitize=fuzzer-no-link)
endif()

# One header of what nearly every file includes, compiled once; modules in whole gain nothing.
function(quenoria_precompile target)
    if(QUENORIA_PRECOMPILE)
        target_precompile_headers(${target} PRIVATE
            <QByteArray> <QDateTime> <QHash> <QObject> <QString> <QStringList> <QUrl>
            <algorithm> <functional> <map> <memory> <optional> <set> <vector>)
    endif()
endfunction()
