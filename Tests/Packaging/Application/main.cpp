#include <ZRPlatform/Foundation/NSString.h>

#include <iostream>

int main() { std::cout << zr::NSString("checkbox_1_normal").stringByAppendingPathExtension("png") << '\n'; }
