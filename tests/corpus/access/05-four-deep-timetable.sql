SELECT tblPupil.Surname, tblClass.[Class Name], tblCourse.Title, tblRoom.[Room No], tblTeacher.Surname, tblLesson.StartsAt
FROM ((((tblPupil INNER JOIN tblClass ON tblPupil.ClassID = tblClass.ClassID) INNER JOIN tblLesson ON tblClass.ClassID = tblLesson.ClassID) INNER JOIN tblCourse ON tblLesson.CourseID = tblCourse.CourseID) LEFT JOIN tblRoom ON tblLesson.RoomID = tblRoom.RoomID) LEFT JOIN tblTeacher ON tblCourse.TeacherID = tblTeacher.TeacherID
WHERE (((tblLesson.HeldOn)=#9/3/2001#) AND ((tblCourse.Title) Not Like "*optional*") AND ((tblLesson.Kind)=IIf([Exam week?],"E","L")))
ORDER BY tblPupil.Surname, tblLesson.StartsAt;
