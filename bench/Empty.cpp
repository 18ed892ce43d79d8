// A program that does nothing, linked as the companion is: the yardstick of a whole process.
int main() {
  return 0;
}
