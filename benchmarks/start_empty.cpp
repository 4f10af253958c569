// What any C++ program pays: nothing but the language's runtime, to which it is linked all the same.
int main() {}
