// The benchmark's rooms: each measures what its part of the program owes the user and reports it.
#pragma once

class Report;

void MeasureStart(Report& report);
void MeasureEngine(Report& report);
void MeasureSolver(Report& report);
void MeasureKeys(Report& report);
void MeasureDocuments(Report& report);
void MeasureAssistance(Report& report);
