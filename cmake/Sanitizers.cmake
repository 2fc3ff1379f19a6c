# Builds everything with the sanitizers that ZR_SANITIZE names. The address sanitizer brings the undefined-behaviour
# one along: they find different mistakes in one run.
if(ZR_SANITIZE STREQUAL "address")
    set(sanitizers address,undefined)
elseif(ZR_SANITIZE STREQUAL "thread")
    set(sanitizers thread)
elseif(ZR_SANITIZE)
    message(FATAL_ERROR "ZR_SANITIZE is \"${ZR_SANITIZE}\"; it can be address, thread or empty")
else()
    return()
endif()
add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
add_link_options(-fsanitize=${sanitizers})
# The checks that the sanitizers put in make g++ take values for uninitialised that are not.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)
endif()
