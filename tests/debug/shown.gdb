set confirm off
set width 0
set host-charset UTF-8
break stop
run
up
info sharedlibrary kova
echo == \n
print text
print null
print empty
print omega
print unknownValue
print doubleValue
print intValue
print boolValue
print textValue
print success
print invalidFile
print foreign
print numbers
print names
print none
print list
print map
print stack
print table
kill
