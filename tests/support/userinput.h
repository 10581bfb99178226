#ifndef TESTS_SUPPORT_USERINPUT_H
#define TESTS_SUPPORT_USERINPUT_H

class QComboBox;

/// Opens a combo box and clicks one of its entries, as a person does.
void chooseEntry(QComboBox *combo, int index);

#endif
